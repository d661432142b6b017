#include "workbench/command/complain.hpp"

#include <iostream>
#include <stdexcept>

#include "workbench/base/printable.hpp"

namespace tpn {

void complain(const std::string& what) { std::cerr << "tpn: " << printable(what) << "\n"; }

bool attempted(const std::function<void()>& work) {
  try {
    work();
    return true;
  } catch (const std::runtime_error& error) {
    complain(error.what());
    return false;
  }
}

}  // namespace tpn
