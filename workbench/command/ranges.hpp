// What numbers an option takes, told in words where another one is given.

#pragma once

#include <CLI/CLI.hpp>

namespace tpn {

// A whole number from 0 to 2^64 - 1, in decimal digits.
CLI::Validator wholeNumber();

// A time in seconds, greater than 0; any length.
CLI::Validator seconds();

}  // namespace tpn
