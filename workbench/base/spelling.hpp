// How far a word is from another, for "did you mean".

#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tpn {

// The fewest letters to add, drop, change or swap with their neighbour to come from one word to the
// other (Damerau and Levenshtein).
std::size_t editDistance(std::string_view from, std::string_view to);

// The candidate nearest to a word, if any is near enough to be meant: one edit for short words, two
// or three for longer ones. The first of those equally near.
std::string nearest(std::string_view word, const std::vector<std::string>& candidates);

}  // namespace tpn
