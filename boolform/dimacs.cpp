#include "boolform/dimacs.hpp"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <span>
#include <utility>

#include "boolform/boolform.hpp"
#include "boolform/linewriter.hpp"

namespace {

// The lines of clauses. Literals up to `shift` keep their number.
struct ClauseLines {
  LineWriter<OutputFile>& lines;
  const int shift;

  std::uint32_t numberOf(int literal) const {
    const int size = std::abs(literal);
    return static_cast<std::uint32_t>(size - (shift & -static_cast<int>(size > shift)));
  }
  [[gnu::always_inline]] char* putLiteral(char* to, int literal) const {
    to = putNumber(to, literal < 0, numberOf(literal));
    *to++ = ' ';
    return to;
  }
  char* put(char* to, int tail) const { return putLiteral(to, tail); }
  char* put(char* to, ClauseTail tail) const {
    to = putLiteral(to, tail.second());
    return putLiteral(to, tail.third());
  }
  void endLine(char* to) const {
    *to++ = '0';
    lines.endLine(to);
  }

  void one(const Clause& c) const {
    char* to = lines.line();
    if (c.first != 0) to = putLiteral(to, c.first);
    if (c.second != 0) to = putLiteral(to, c.second);
    if (c.third != 0) to = putLiteral(to, c.third);
    endLine(to);
  }

  // The leading literal is turned into text once.
  template <class Tail>
  void run(int leading, std::span<const Tail> tails) const {
    const std::uint32_t number = numberOf(leading);
    if (number >= ShortNumber::limit) {
      for (const Tail tail : tails) one(clauseOf(leading, tail));
      return;
    }
    const ShortNumber first(number);
    for (const Tail tail : tails) {
      char* to = first.put(lines.line(), leading < 0);
      *to++ = ' ';
      endLine(put(to, tail));
    }
  }
};

void writeLines(const ClauseSet& cnf, LineWriter<OutputFile>& lines, int highest, int shift) {
  lines.text("p cnf ");
  lines.number(highest);
  lines.text(" ");
  lines.number(cnf.size());
  lines.endLine();
  cnf.forEachRun(ClauseLines{lines, shift});
}

Written writeDimacs(const ClauseSet& cnf, std::string name, int highest, int shift) {
  OutputFile file;
  {
    LineWriter lines(file);  // has its memory before the file is touched
    file.open(std::move(name));
    if (file.outcome().opened) writeLines(cnf, lines, highest, shift);
  }
  return file.outcome();
}

int shiftOf(const ClauseSet& cnf) { return varNrLimit - maxCNFOrgVarNr(cnf); }

}  // namespace

int maxCNFVarNr(const ClauseSet& cnf) { return cnf.maxLiteral(); }

int maxCNFOrgVarNr(const ClauseSet& cnf) { return cnf.maxVariable(); }

int headerVariables(const ClauseSet& cnf) { return maxCNFVarNr(cnf) - shiftOf(cnf); }

Written showCNF(const ClauseSet& cnf, std::string name) {
  return writeDimacs(cnf, name.append(".cnf"), headerVariables(cnf), shiftOf(cnf));
}

Written showCNF(const ClauseSet& cnf) {
  return writeDimacs(cnf, "test.cnf", maxCNFVarNr(cnf), std::numeric_limits<int>::max());
}
