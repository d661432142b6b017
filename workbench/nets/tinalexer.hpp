// The tokens of a .net file: words, names in braces, symbols. Blanks and line ends separate; lines
// that begin with # are comments.

#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "workbench/base/checkpoint.hpp"
#include "workbench/base/textlines.hpp"
#include "workbench/nets/netrules.hpp"

namespace tpn {

struct TinaToken {
  enum Kind : std::uint8_t {
    word,    // letters, digits, ' and _: a keyword, a name or a number
    braced,  // a name in braces; `name` is what they hold
    symbol,  // -> ?- !- [ ] ( ) , : * ? ! < >
    unknown,
    end
  };
  Kind kind = end;
  std::string_view text;
  std::string name;  // of a word or of braces
  Place at;
  bool first = false;  // on its line

  bool is(std::string_view what) const { return (kind == symbol || kind == word) && text == what; }
  bool isName() const { return kind == word || kind == braced; }
  bool isKeyword() const;  // a word that begins a declaration
};

class TinaLexer {
 public:
  // Borrows all three; what is wrong with a name in braces goes to the report.
  TinaLexer(std::string_view text, NetReport& report, const Checkpoint& checkpoint)
      : text_(text), report_(report), checkpoint_(checkpoint) {}

  TinaToken next();  // asks the checkpoint

  // The comments passed so far, each a line from its # on.
  std::vector<Line> takeComments() { return std::move(comments_); }

 private:
  void skip();
  void skipComment();
  TinaToken braced();

  std::string_view rest() const { return text_.substr(at_); }
  Place place() const { return {line_, static_cast<int>(at_ - lineBegin_) + 1}; }

  std::string_view text_;
  NetReport& report_;
  const Checkpoint& checkpoint_;
  std::size_t passed_ = 0;  // tokens
  std::size_t at_ = 0;
  std::size_t lineBegin_ = 0;
  int line_ = 1;
  bool firstOnLine_ = true;
  std::vector<Line> comments_;
};

// A number with K or M behind it, or none; nothing where a word is none. Above 10^15 it is 10^15.
std::optional<std::int64_t> tinaNumber(std::string_view word);

// A name as these files write it.
std::string tinaName(const std::string& name);

}  // namespace tpn
