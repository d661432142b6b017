// libFuzzer over certificates: any bytes as one, of Fischer's protocol with two processes. What is
// read is written and read again as the same; what the check confirms, the reachable states agree
// with. Hash sums are left out of it: no mutation finds the right ones.

#include <cassert>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>

#include "tests/workbench/proof/fischer.hpp"
#include "tests/workbench/proof/reachable.hpp"
#include "workbench/proof/certificatetext.hpp"
#include "workbench/proof/checker.hpp"

namespace {

using namespace tpn;

struct Question {
  Network net = fischer::network(2);
  Goal goal = fischer::violation(2);
  std::set<states::State> reachable = states::Explorer(net).reachable();
};

std::optional<CertificateFile> read(const std::string& text) {
  try {
    return readCertificate(text);
  } catch (const std::runtime_error& e) {
    const std::string what = e.what();
    assert(what.starts_with("line ") && what.find('\n') == std::string::npos);
    return std::nullopt;
  }
}

void judge(const Question& q, const Certificate& proof) {
  int questions = 0;
  const Recheck result = recheck(q.net, q.goal, proof, [&] { return ++questions > 10'000; });
  assert(result.complaint.empty() == (result.result != Recheck::refuted));
  assert(result.complaint.find('\n') == std::string::npos);
  if (result.result != Recheck::confirmed) return;
  const Certificate flat = flattened(proof);
  for (const states::State& state : q.reachable) assert(states::inside(flat, state));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const Question question;
  const auto file = read(std::string(data, data + size));
  if (!file) return 0;
  const auto again = read(certificateText(*file));
  assert(again && *again == *file);
  judge(question, file->proof);
  return 0;
}
