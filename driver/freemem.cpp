#include "driver/freemem.hpp"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace {

// Empty lines are skipped; false at the end.
bool readLine(std::istream& in, std::string& line) {
  while (std::getline(in, line))
    if (!line.empty()) return true;
  return false;
}

// Today's layout: the label is followed by one number, in kB.
std::uint64_t kilobytesAfter(const std::vector<std::string>& lines, const std::string& label) {
  for (const std::string& line : lines) {
    std::istringstream row(line);
    std::string word;
    std::uint64_t kilobytes = 0;
    if (row >> word && word == label && row >> kilobytes) return kilobytes;
  }
  return 0;
}

bool isRow(const std::string& line, const std::string& label) {
  return line.compare(0, label.size(), label) == 0;
}

// "Mem:" in the second line; files of that layout may go on with rows of today's. Where neither is
// to be seen it is the older one as well.
bool hasColumns(const std::vector<std::string>& lines) {
  if (lines.size() > 1 && isRow(lines[1], "Mem:")) return true;
  return std::none_of(lines.begin(), lines.end(),
                      [](const std::string& line) { return isRow(line, "MemFree:"); });
}

// The older layout: a label and the columns total, used, free, in bytes.
std::uint64_t thirdColumn(const std::vector<std::string>& lines, std::size_t row) {
  if (row >= lines.size()) return 0;
  std::istringstream columns(lines[row]);
  std::string label;
  std::uint64_t total = 0;
  std::uint64_t used = 0;
  std::uint64_t free = 0;
  return columns >> label >> total >> used >> free ? free : 0;
}

}  // namespace

std::int32_t freeMemory(std::istream& summary) {
  std::vector<std::string> lines;
  for (std::string line; readLine(summary, line);) lines.push_back(line);
  const std::uint64_t bytes =
      hasColumns(lines)
          ? thirdColumn(lines, 1) + thirdColumn(lines, 2)
          : (kilobytesAfter(lines, "MemFree:") + kilobytesAfter(lines, "SwapFree:")) * 1024;
  return static_cast<std::int32_t>(static_cast<std::uint32_t>(bytes));
}

std::int32_t getfreemem() {
  [[maybe_unused]] const int status = std::system("free > /dev/null");
  std::ifstream summary("/proc/meminfo");
  return summary ? freeMemory(summary) : -1;
}
