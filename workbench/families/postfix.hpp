// Properties over the propositions of networks of any size, in postfix. Propositions below 10 are
// about a network as a whole; 10 * i + kind is about the i-th process, train, station or pair.

#pragma once

#include <string>

namespace tpn {

constexpr int about(int i, int kind) { return 10 * i + kind; }

std::string proposed(int proposition);     // "p21"
std::string everyOne(int kind, int last);  // of 1 .. last
std::string someTwo(int kind, int last);   // at least two of 1 .. last, 2 or more: all pairs

}  // namespace tpn
