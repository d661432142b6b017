// Many names in few words. Names that differ in their numbers alone become one, with a star for a
// number that differs: write1_over2, write1_over3, write1_over4 are "write1_over*".

#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "workbench/network/network.hpp"

namespace tpn {

// The name with a mark for each of its numbers: the same for names that differ in these alone.
std::string skeleton(const std::string& name);

// Each name once, as a list: a few as they are, more of one skeleton as a pattern, bare numbers in
// ranges such as "3 .. 9"; at most `limit` items, and how many were left out.
std::vector<std::string> summary(const std::vector<std::string>& names, std::size_t limit);

// One of these, and no one knows which: "A", "node*", "one of 1 .. 20", "producer or node*".
std::string eitherOf(const std::vector<std::string>& names);

// Who the processes of a group are, by their names: "P1 .. P20", "alice, bob".
std::string members(const std::vector<std::string>& names);

// Ascending numbers: "1 .. 20", "1, 3 .. 39", "2, 5, 6".
std::vector<std::string> ranges(const std::vector<std::size_t>& numbers);

}  // namespace tpn
