#include "boolform/dimacs.hpp"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <utility>

#include "boolform/boolform.hpp"
#include "boolform/linewriter.hpp"

namespace {

[[gnu::always_inline]] inline char* putLiteral(char* to, int literal, int shift) {
  if (literal == 0) return to;
  const int size = std::abs(literal);
  const int down = shift & -static_cast<int>(size > shift);
  to = putNumber(to, literal < 0, static_cast<std::uint32_t>(size - down));
  *to++ = ' ';
  return to;
}

// Literals up to `shift` keep their number.
void writeLines(const ClauseSet& cnf, LineWriter<OutputFile>& lines, int highest, int shift) {
  lines.text("p cnf ");
  lines.number(highest);
  lines.text(" ");
  lines.number(cnf.size());
  lines.endLine();
  cnf.forEach([&](const Clause& c) {
    char* to = lines.line();
    to = putLiteral(to, c.first, shift);
    to = putLiteral(to, c.second, shift);
    to = putLiteral(to, c.third, shift);
    *to++ = '0';
    lines.endLine(to);
  });
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
