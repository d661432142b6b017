// What a page may do, for browsers to enforce: apply this style and run this script, known by their
// SHA-256; nothing else, and nothing from anywhere.

#pragma once

#include <string>

namespace tpn {

// For <meta http-equiv="Content-Security-Policy">. An empty script: none may run.
std::string contentPolicy(const std::string& style, const std::string& script);

}  // namespace tpn
