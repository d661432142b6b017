// Text in pictures that has to fit what is drawn around it: in a font of fixed width, and told how
// wide to be, so that it does in every viewer, whatever fonts there are. Lengths in pixels.

#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace tpn {

extern const char* const setFonts;  // a font-family for the picture

double setWidth(const std::string& text, double fontSize);
double setWidth(const std::vector<std::string>& lines, double fontSize);  // of the widest

// Folded at blanks into lines of up to so many columns; those after the first are indented. A word
// that is wider is cut; an interval is one word.
std::vector<std::string> setLines(const std::string& text, std::size_t columns);

// From x to the right, on the line at y; `more` is further attributes. Printable; escaped.
std::string setText(double x, double y, const std::string& text, double fontSize,
                    const std::string& colour, const std::string& more = "");

std::string decimal(double pixels);  // with one digit after the point where that is not 0

// Attribute and element with such lengths.
std::string shifted(double x, double y);
std::string rectangle(double x, double y, double width, double height, const std::string& more);

}  // namespace tpn
