// tpn export: the network as a circuit, and a certificate as one, for hardware model checkers.

#include <filesystem>
#include <iostream>
#include <memory>
#include <stdexcept>

#include "workbench/base/files.hpp"
#include "workbench/command/ending.hpp"
#include "workbench/command/reading.hpp"
#include "workbench/command/subcommand.hpp"
#include "workbench/proof/checker.hpp"
#include "workbench/proof/machinecircuit.hpp"
#include "workbench/search/proving.hpp"

namespace tpn {

namespace {

struct ExportArguments {
  Files files;
  bool deadlock = false;
  std::string aiger;
  std::string certificate;
  std::string witness;
  double timeout = 0;
};

// By the suffix of the file: text or bytes.
void writeAiger(const std::string& file, const Circuit& circuit, const std::string& comment) {
  const bool binary = std::filesystem::path(file).extension() == ".aig";
  writeFile(file, binary ? binaryAiger(circuit, comment) : asciiAiger(circuit, comment));
}

std::string title(const Asked& asked) {
  const std::string goal = asked.goal.text;
  return asked.net.title + "\nis bad where: " + goal + "\n";
}

// The one that is named, rechecked; or a new one.
Certificate proofFor(const ExportArguments& a, const Asked& asked, const Watch& watch) {
  const auto over = [&] { return watch.over(); };
  if (a.certificate.empty()) {
    const Proved found = proved(asked.net, asked.goal, over, [](const auto&) {});
    if (!found.certificate && watch.over()) throw Interrupted();
    if (!found.certificate) throw std::runtime_error("there is no proof, hence no witness of it");
    return *found.certificate;
  }
  const CertificateFile file = readCertificateFile(a.certificate);
  const Recheck checked = recheck(asked.net, asked.goal, file, over);
  if (checked.result == Recheck::stopped) throw Interrupted();
  if (checked.result != Recheck::confirmed)
    throw std::runtime_error(a.certificate + ": " + checked.complaint);
  return file.proof;
}

void writeWitness(const ExportArguments& a, const Asked& asked, const MachineCircuit& machine,
                  const Watch& watch) {
  const Checkpoint checkpoint([&] { return watch.over(); });
  const Certificate flat = flattened(proofFor(a, asked, watch), checkpoint);
  const Circuit witness = witnessCircuit(asked.net, machine, flat, checkpoint);
  writeAiger(a.witness, witness, "WITNESS b0 " + a.aiger + "\n");
}

int exportAiger(const ExportArguments& a, const Watch& watch) {
  const Checkpoint checkpoint([&] { return watch.over(); });
  const std::optional<Asked> asked = askedOf(a.files, checkpoint);
  if (!asked) return failed;
  const MachineCircuit machine = makeMachineCircuit(asked->net, asked->goal, checkpoint);
  writeAiger(a.aiger, machine.circuit, title(*asked));
  if (!a.witness.empty()) writeWitness(a, *asked, machine, watch);
  return done;
}

int exportInTime(const ExportArguments& a) {
  const Watch::Report none;
  const Watch watch(limitOf(a.timeout), stoppedBySignals(), none);
  try {
    return exportAiger(a, watch);
  } catch (const Interrupted&) {
    return stoppedBefore(watch);
  }
}

int checkedArguments(const ExportArguments& a) {
  if (asksOnce(a.files, a.deadlock)) return exportInTime(a);
  std::cerr << "tpn: export takes NET PHI, NET -p TEXT or --deadlock NET\n";
  return misused;
}

Action declareExport(CLI::App& app) {
  const auto a = std::make_shared<ExportArguments>();
  addNet(app, a->files);
  addPhi(app, a->files);
  app.add_flag("--deadlock", a->deadlock, "what is bad is a deadlock; there is no PHI");
  const auto isAiger = CLI::Validator(
      [](const std::string& file) {
        const std::string suffix = std::filesystem::path(file).extension();
        return suffix == ".aag" || suffix == ".aig" ? "" : file + " does not end in .aag or .aig";
      },
      "");
  app.add_option("--aiger", a->aiger, "the circuit: text in .aag, bytes in .aig")
      ->type_name("FILE")
      ->required()
      ->check(isAiger);
  CLI::Option* certificate = app.add_option("--certificate", a->certificate,
                                            "a proof to make the witness of, instead of a new one")
                                 ->type_name("FILE");
  CLI::Option* witness = app.add_option("--witness", a->witness, "the proof as a circuit")
                             ->type_name("FILE")
                             ->check(isAiger);
  certificate->needs(witness);
  addTimeout(app, a->timeout);
  return [a] { return checkedArguments(*a); };
}

}  // namespace

const Subcommand exportCommand{"export", "the network as a circuit in AIGER's form", declareExport};

}  // namespace tpn
