// libFuzzer over the strict readers: any bytes as a network and as a property. scripts/fuzz builds
// and runs it.

#include <cstddef>
#include <cstdint>
#include <string>

#include "tests/workbench/network/lintinvariants.hpp"
#include "workbench/encoding/lintbound.hpp"
#include "workbench/network/propertyreader.hpp"
#include "workbench/network/strictread.hpp"

namespace {

void lintNetwork(const std::string& text) {
  tpn::Diagnostics found;
  const auto net = tpn::readNetwork("net.tpn", text, found);
  assertInvariants(text, found, net.has_value());
  if (net) {
    lintTogether(*net, "phi.tpn", {"p1p-2&", {{}, {}, {}}}, found);
    lintBound(*net, "net.tpn", static_cast<int>(text.size()) - 40, found);
  }
  assert(!diagnosticsJson(found).empty());
}

void lintProperty(const std::string& text) {
  tpn::Diagnostics found;
  const auto property = tpn::readProperty("phi.tpn", text, found);
  assertInvariants(text, found, property.has_value());
  if (property) lintTogether({}, "phi.tpn", *property, found);
  assertInvariants(text, found, property.has_value());
  assert(!diagnosticsJson(found).empty());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(data, data + size);
  lintNetwork(text);
  lintProperty(text);
  return 0;
}
