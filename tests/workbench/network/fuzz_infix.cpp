// libFuzzer over properties in infix notation: any bytes as one, on a network with names.

#include <cassert>
#include <cstddef>
#include <cstdint>
#include <string>

#include "tests/workbench/network/lintinvariants.hpp"
#include "tests/workbench/network/smallnets.hpp"
#include "workbench/base/printable.hpp"
#include "workbench/network/account.hpp"
#include "workbench/network/questionreader.hpp"

namespace {

using namespace tpn;

Network namedNetwork() {
  Network net = twoProcesses();
  net.names.processes = {{0, "a"}, {1, "b c"}};
  net.names.locations = {{{0, 0}, "i"}, {{0, 1}, "in"}, {{1, 1}, "*"}};
  net.names.propositions = {{7, "p8"}, {8, "x"}};
  return net;
}

// Items make one value, and say which part of the text they stand for.
void checkItems(const Property& property) {
  std::ptrdiff_t values = 0;
  for (const PropertyItem& item : property.items) {
    values -= operandsOf(item);
    assert(values >= 0);
    ++values;
    assert(item.begin < item.end && item.end <= property.text.size());
  }
  assert(values == 1);
}

// True, false, or both in different states; where true, something is enough.
void checkValues(const Network& net, const Property& property) {
  for (const int first : {0, 1})
    for (const int second : {0, 1}) {
      const Locations at{first, second};
      const std::set<int> held = propositionsAt(net, at);
      const StateFacts state{held, at, first == second};
      if (holds(property, state))
        for (const std::string& fact : account(net, property, state))
          assert(!fact.empty() && printable(fact) == fact);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const Network net = namedNetwork();
  const std::string text(data, data + size);
  Diagnostics found;
  const auto given = readGivenQuestion(text, &net, found);
  assert(given.has_value() == found.empty());
  if (given) {
    checkItems(*given);
    checkValues(net, *given);
  }
  const auto read = readQuestion("phi", text, &net, found);
  if (read) checkItems(*read);
  for (const Diagnostic& d : found) {
    assertIsKnown(d);
    assert(!d.message.empty() && printable(d.message) == d.message);
    assert(printableLines(tpn::text(d)) == tpn::text(d));
  }
  return 0;
}
