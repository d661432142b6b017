// Whole files in and out. Failures are std::runtime_error with one line that names the file and the
// system's reason.

#pragma once

#include <cstddef>
#include <limits>
#include <string>

namespace tpn {

constexpr std::size_t anySize = std::numeric_limits<std::size_t>::max();

// More than this is no network, property, map or answer: a device without end, say.
constexpr std::size_t largestInput = std::size_t{256} << 20U;

// One that holds more than `most` bytes is refused.
std::string readFile(const std::string& name, std::size_t most = anySize);

// Everything is on its way to the disk when this returns: a full one is noticed. "-" is standard
// output.
void writeFile(const std::string& name, const std::string& text);

// The file is there with this text, or as it was before: a kill, a full disk or a crash of the
// machine leaves nothing half. It is written beside, under a name that no other process uses, and
// renamed.
void replaceFile(const std::string& name, const std::string& text);

// Reading and writing an open descriptor, from and at where it stands; `name` is for the message.
std::string readAll(int descriptor, const std::string& name, std::size_t most = anySize);
void writeAll(int descriptor, const std::string& text, const std::string& name);

// What a user names with or without .tpn; a failure to open it names both files where both were
// tried.
std::string readInput(const std::string& name);

// NAME as the user gave it, or NAME.tpn, NAME.net, NAME.pnml, the first that exists where NAME does
// not: zervan knows files by the shorter name.
std::string inputName(const std::string& name);

}  // namespace tpn
