// libFuzzer over the section of names: any bytes behind the last "end". What is read is written and
// read again.

#include <cassert>
#include <cstddef>
#include <cstdint>
#include <string>

#include "tests/workbench/network/lintinvariants.hpp"
#include "workbench/network/shown.hpp"
#include "workbench/network/strictread.hpp"
#include "workbench/network/writer.hpp"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const std::string net =
      "a\ntransitions\n1 0 3\n2 0 -1\nendtran\nprocess lamp\n1 0 1\nvaluation\n1 4 5\nendval\nend\n"
      "process\n1 1 0\n2 0 0\nvaluation\nendval\nend\nend\nnames\n";
  const std::string text = net + std::string(data, data + size);
  tpn::Diagnostics found;
  const auto read = tpn::readNetwork("net.tpn", text, found);
  assertInvariants(text, found, read.has_value());
  if (!read) return 0;
  tpn::Diagnostics none;
  assert(tpn::readNetwork("net.tpn", tpn::networkFile(*read), none) == *read);
  for (std::size_t p = 0; p < read->processes.size(); ++p)
    assert(!tpn::shownProcess(*read, p).empty());
  return 0;
}
