// The network on a page. A page is worth having without it: where it cannot be drawn, it says so.

#include <stdexcept>

#include "workbench/views/page/html.hpp"
#include "workbench/views/page/parts.hpp"
#include "workbench/views/svgelements.hpp"
#include "workbench/views/viewparts.hpp"
#include "workbench/views/views.hpp"

namespace tpn {

std::string networkPart(const Network& net, const Look& look) {
  std::string content;
  try {
    content = element("div",
                      attribute("class", "picture") + attribute("id", "drawing") +
                          attribute("tabindex", "0") + attribute("role", "group") +
                          attribute("aria-label", "the network: an automaton a process"),
                      "\n" + inlineSvg(networkSvg(net, look)));
  } catch (const std::runtime_error& e) {
    content = element("p", attribute("class", "missing"), xmlText(e.what()));
  }
  return section("network", "The network", content);
}

}  // namespace tpn
