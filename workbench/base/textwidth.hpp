// How much room a printable text takes in a terminal or in a font of fixed width: in columns, where
// most characters take one, those of East Asia and pictographs two, and accents that stand over the
// character before them none. The C library's table follows the locale, and ours follows nothing.

#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tpn {

std::size_t displayedWidth(std::string_view text);

// Filled up with blanks behind it, or before it.
std::string padded(const std::string& text, std::size_t width);
std::string rightPadded(const std::string& text, std::size_t width);

// As many whole characters as fit, at least one where there is any; the rest.
std::string_view head(std::string_view text, std::size_t width);

// The words with a blank between them, in lines no wider than `width`; a word that is wider by
// itself is broken.
std::vector<std::string> folded(const std::vector<std::string>& words, std::size_t width);

// The heading, a blank and the words in lines no wider than `width`, each with its end; what does
// not fit into the first stands below where the words begin, or 6 columns in where they begin so
// far to the right that little room is left.
std::string hanging(const std::string& heading, const std::vector<std::string>& words,
                    std::size_t width);

}  // namespace tpn
