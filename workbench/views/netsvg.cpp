// A network drawn by Graphviz.

#include <stdexcept>

#include "workbench/base/filter.hpp"
#include "workbench/base/programpath.hpp"
#include "workbench/views/views.hpp"

namespace tpn {

std::string networkSvg(const Network& net) {
  if (programPath("dot").empty())
    throw std::runtime_error("there is no dot to draw with: install the package graphviz");
  try {
    return filtered({"dot", "-Tsvg"}, networkDot(net));
  } catch (const std::runtime_error& e) {
    throw std::runtime_error(std::string("no picture: ") + e.what());
  }
}

}  // namespace tpn
