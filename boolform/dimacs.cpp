#include "boolform/dimacs.hpp"

#include <algorithm>
#include <cstdlib>
#include <fstream>

#include "boolform/boolform.hpp"
#include "boolform/linewriter.hpp"

namespace {

int renumbered(int literal, int shift) {
  const int down = std::abs(literal) <= shift ? 0 : shift;
  return literal > 0 ? literal - down : literal + down;
}

[[gnu::always_inline]] inline char* putLiteral(char* to, int literal, int shift) {
  if (literal == 0) return to;
  to = putNumber(to, renumbered(literal, shift));
  *to++ = ' ';
  return to;
}

// Literals up to `shift` keep their number.
void writeDimacs(const ClauseSet& cnf, const std::string& file, int highest, int shift) {
  std::ofstream out;
  LineWriter lines(out);               // has its memory before the file is touched
  out.rdbuf()->pubsetbuf(nullptr, 0);  // the line writer's blocks go straight to the system
  out.open(file);
  if (!out) return;
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

}  // namespace

int maxCNFVarNr(const ClauseSet& cnf) { return cnf.maxLiteral(); }

int maxCNFOrgVarNr(const ClauseSet& cnf) { return cnf.maxVariable(); }

void showCNF(const ClauseSet& cnf, std::string name) {
  const int shift = varNrLimit - maxCNFOrgVarNr(cnf);
  writeDimacs(cnf, name.append(".cnf"), maxCNFVarNr(cnf) - shift, shift);
}

void showCNF(const ClauseSet& cnf) {
  writeDimacs(cnf, "test.cnf", maxCNFVarNr(cnf), std::numeric_limits<int>::max());
}
