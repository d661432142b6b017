// The parts of a network as people read them in texts, and may write them in questions and
// commands: by name where there is one (in braces where it is no word), by number where there is
// none. Printable.

#pragma once

#include <cstddef>
#include <string>

#include "workbench/network/network.hpp"

namespace tpn {

std::string shownProcess(const Network& net, std::size_t process);                 // "B", "4"
std::string shownLocation(const Network& net, std::size_t process, int location);  // "idle", "0"
std::string shownSpot(const Network& net, std::size_t process, int location);      // "B.idle"
std::string shownTransition(const Network& net, std::size_t transition);           // "vote", "16"
std::string shownProposition(const Network& net, int proposition);                 // "done", "p11"

// Behind a number, where that is shown as well: " vote", or nothing.
std::string andName(const std::string& number, const std::string& shown);

// What initial locations are called together: "0" where none has a name, a name where all have it;
// empty where they differ.
std::string initialName(const Network& net);

}  // namespace tpn
