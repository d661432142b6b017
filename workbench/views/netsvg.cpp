// A network drawn by Graphviz.

#include <stdexcept>

#include "workbench/base/filter.hpp"
#include "workbench/views/views.hpp"

namespace tpn {

std::string networkSvg(const Network& net) {
  try {
    return filtered({"dot", "-Tsvg"}, networkDot(net));
  } catch (const std::runtime_error& e) {
    throw std::runtime_error(std::string("no picture without dot (package graphviz): ") + e.what());
  }
}

}  // namespace tpn
