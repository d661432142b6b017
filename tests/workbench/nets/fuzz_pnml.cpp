// libFuzzer over the reader of PNML, what it makes of them, and the writer. scripts/fuzz
// builds and runs it.

#include "tests/workbench/nets/fuzznets.hpp"
#include "workbench/nets/pnmlreader.hpp"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(data, data + size);
  tpn::Diagnostics found;
  checkRead(tpn::readPnml("net", text, found), found);
  return 0;
}
