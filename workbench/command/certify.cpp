// tpn certify: does this file prove that the goal is never reached?

#include <iostream>
#include <memory>

#include "workbench/base/files.hpp"
#include "workbench/command/ending.hpp"
#include "workbench/command/reading.hpp"
#include "workbench/command/subcommand.hpp"
#include "workbench/proof/checker.hpp"

namespace tpn {

namespace {

struct CertifyArguments {
  Files files;
  std::string certificate;
  bool deadlock = false;
  double timeout = 0;
};

int certify(const CertifyArguments& a) {
  const Watch::Report none;
  const Watch watch(limitOf(a.timeout), stoppedBySignals(), none);
  std::optional<Asked> asked;
  try {
    asked = askedOf(a.files, Checkpoint([&] { return watch.over(); }));
  } catch (const Interrupted&) {
    return stoppedBefore(watch);
  }
  if (!asked) return failed;
  const CertificateFile file = readCertificateFile(a.certificate);
  const Recheck result = recheck(asked->net, asked->goal, file, [&] { return watch.over(); });
  if (result.result == Recheck::confirmed) {
    writeFile("-", "unreachable: the certificate proves it\n");
    return done;
  }
  if (result.result == Recheck::stopped) return stoppedBefore(watch);
  std::cerr << a.certificate << ": " << result.complaint << "\n";
  return failed;
}

// With --deadlock or -p there is no PHI: what stands in its place is the certificate.
int checkedArguments(CertifyArguments& a) {
  if ((a.deadlock || a.files.property) && a.certificate.empty())
    std::swap(a.certificate, a.files.phi);
  if (!asksOnce(a.files, a.deadlock) || a.certificate.empty()) {
    std::cerr << "tpn: certify takes NET PHI FILE, NET -p TEXT FILE or --deadlock NET FILE\n";
    return misused;
  }
  return certify(a);
}

Action declareCertify(CLI::App& app) {
  const auto a = std::make_shared<CertifyArguments>();
  addNet(app, a->files);
  addPhi(app, a->files);
  app.add_option("FILE", a->certificate, "certificate, as check --certificate writes it")
      ->type_name("FILE");
  app.add_flag("--deadlock", a->deadlock, "it is about a deadlock; there is no PHI");
  addTimeout(app, a->timeout);
  return [a] { return checkedArguments(*a); };
}

}  // namespace

const Subcommand certifyCommand{"certify", "recheck a certificate that a goal is never reached",
                                declareCertify};

}  // namespace tpn
