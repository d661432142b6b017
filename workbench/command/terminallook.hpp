// How views look on standard output: as wide as the terminal, and in colour where one obeys it.
//
// The width is COLUMNS where that is a number, else the terminal's, else 80. Colour takes a
// terminal that is not "dumb", and no NO_COLOR with anything in it.

#pragma once

#include "workbench/views/views.hpp"

namespace tpn {

Look lookOnTerminal(bool all);

}  // namespace tpn
