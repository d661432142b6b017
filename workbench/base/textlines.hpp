// A file as the readers of zervan see it: lines that hold anything at all, on them words between
// white space, some of them numbers, and the keywords that a line may begin with.

#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tpn {

struct Place {
  int line = 0;
  int column = 0;
};

struct Word {
  std::string_view text;
  int column = 0;
};

struct Line {
  std::string_view text;
  int number = 0;
  bool ended = true;  // by a newline
};

// The lines that are not empty; views into `text`.
std::vector<Line> nonEmptyLines(std::string_view text);
Place endOf(std::string_view text);  // the place behind its last byte
std::vector<Word> words(const Line& line);

// A sign or none, then digits: whether it fits into 32 bits is another question.
bool isNumber(std::string_view word);
std::optional<int> value(std::string_view number);  // nothing where it does not fit

enum class Keyword { transitions, endtran, process, valuation, endval, end };

std::string_view name(Keyword keyword);

// As zervan reads it: by the first characters of the line, whatever follows.
bool beginsWith(const Line& line, Keyword keyword);

// The keyword that a line was meant to begin with, if any, and how it fails to.
struct Meant {
  Keyword keyword = Keyword::end;
  enum Form { exact, indented, misspelt } form = exact;
};
std::optional<Meant> meant(const Line& line);

}  // namespace tpn
