// Foreign text in our output. A title, a file name, a solver's message may hold anything, also
// sequences that a terminal obeys; whatever is printed for people goes through here.

#pragma once

#include <string>

namespace tpn {

// Every byte that is no UTF-8, and every control character (C0, delete, C1), replaced by U+FFFD.
// The result is one line, and valid in XML.
std::string printable(const std::string& text);

// The same for text of several lines: the line ends stay.
std::string printableLines(const std::string& text);

}  // namespace tpn
