// libFuzzer over the readers of answers: any bytes as what a solver said, and, where a NUL parts
// them, as variable map and answer of a question about a small network. Whatever they are, the
// outcome is a run that replays, no run, or one line of complaint.

#include <cassert>
#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>

#include "workbench/network/propertyreader.hpp"
#include "workbench/network/strictread.hpp"
#include "workbench/runs/replay.hpp"
#include "workbench/search/trace.hpp"
#include "workbench/solvers/answer.hpp"

namespace {

const char* const netText =
    "two\ntransitions\n1 0 1\n2 1 2\nendtran\n"
    "process\n1 0 1\n2 1 0\nvaluation\n1 1\nendval\nend\n"
    "process\n1 0 1\n2 1 0\nvaluation\nendval\nend\nend\n";

struct Question {
  tpn::Network net;
  tpn::Property property;
};

const Question& question() {
  static const Question q = [] {
    tpn::Diagnostics none;
    const auto net = tpn::readNetwork("net.tpn", netText, none);
    const auto property = tpn::readProperty("phi.tpn", "p1\n", none);
    assert(net && property);
    return Question{*net, *property};
  }();
  return q;
}

// One line, nothing else.
template <class Read>
void complaining(Read read) {
  try {
    read();
  } catch (const std::runtime_error& e) {
    const std::string what = e.what();
    assert(!what.empty() && what.find('\n') == std::string::npos);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(data, data + size);
  const std::size_t parted = text.find('\0');
  const std::string answer = parted == std::string::npos ? text : text.substr(parted + 1);
  complaining([&] { tpn::readAnswer(answer); });
  if (parted == std::string::npos) return 0;
  complaining([&] {
    const Question& q = question();
    const auto run = tpn::traced(q.net, q.property, text.substr(0, parted), answer).run;
    if (run) assert(tpn::replay(q.net, q.property, *run).complaint.empty());
  });
  return 0;
}
