// What values an option takes, told in words where another one is given.

#pragma once

#include <CLI/CLI.hpp>
#include <cstdint>
#include <limits>
#include <string>
#include <utility>
#include <vector>

namespace tpn {

// A whole number in decimal digits, from `least` to `most`.
CLI::Validator wholeNumber(std::uint64_t least = 0,
                           std::uint64_t most = std::numeric_limits<std::uint64_t>::max());

// A time in seconds, greater than 0; any length.
CLI::Validator seconds();

// What --help calls the value of an option that takes one of these names: a|b|c.
std::string alternatives(const std::vector<std::string>& names);

// One of these names.
CLI::Validator oneOf(const std::vector<std::string>& names);

// The same for a transform, by which the option gets the number that goes with it.
CLI::Validator numberOf(const std::vector<std::pair<std::string, int>>& names);

// Anything but nothing. For a transform, so that it comes before all others; it changes nothing.
CLI::Validator notEmpty();

}  // namespace tpn
