// A net from a text that is in order.

#pragma once

#include <gtest/gtest.h>

#include <string>

#include "workbench/nets/tinareader.hpp"

namespace tpn {

inline PetriNet tinaNet(const std::string& text) {
  Diagnostics found;
  const auto net = readTina("net", text, found);
  for (const Diagnostic& d : found) ADD_FAILURE() << tpn::text(d) << "\n" << text;
  return net.value_or(PetriNet{});
}

}  // namespace tpn
