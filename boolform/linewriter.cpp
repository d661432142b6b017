#include "boolform/linewriter.hpp"

#include <algorithm>
#include <cassert>

void LineWriter::text(std::string_view s) {
  assert(s.size() <= maxLine);
  std::copy(s.begin(), s.end(), next());
  used_ += s.size();
}
