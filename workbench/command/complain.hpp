// What goes wrong, told in one line on standard error.

#pragma once

#include <functional>
#include <string>

namespace tpn {

// "tpn: WHAT". Names of files may be any bytes.
void complain(const std::string& what);

// Does the work; a std::runtime_error that ends it is told, and then this is false.
bool attempted(const std::function<void()>& work);

}  // namespace tpn
