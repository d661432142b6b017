#include "boolform/dimacs.hpp"

#include <algorithm>
#include <cstdlib>
#include <fstream>

#include "boolform/boolform.hpp"
#include "boolform/linewriter.hpp"

namespace {

// The largest absolute value of a literal that does not exceed `limit`.
int maxLiteral(const ClauseSet& cnf, int limit) {
  int result = 0;
  const auto take = [&](int literal) {
    const int v = std::abs(literal);
    if (v <= limit) result = std::max(result, v);
  };
  for (const Clause& c : cnf) {
    take(c.first);
    take(c.second);
    take(c.third);
  }
  return result;
}

int renumbered(int literal, int shift) {
  if (std::abs(literal) <= shift) return literal;
  return literal > 0 ? literal - shift : literal + shift;
}

void writeLiteral(LineWriter& lines, int literal, int shift) {
  if (literal == 0) return;
  lines.number(renumbered(literal, shift));
  lines.character(' ');
}

// Literals up to `shift` keep their number.
void writeDimacs(const ClauseSet& cnf, const std::string& file, int highest, int shift) {
  std::ofstream out;
  out.rdbuf()->pubsetbuf(nullptr, 0);  // the line writer's blocks go straight to the system
  out.open(file);
  if (!out) return;
  LineWriter lines(out);
  lines.text("p cnf ");
  lines.number(highest);
  lines.character(' ');
  lines.number(cnf.size());
  lines.endLine();
  for (const Clause& c : cnf) {
    writeLiteral(lines, c.first, shift);
    writeLiteral(lines, c.second, shift);
    writeLiteral(lines, c.third, shift);
    lines.character('0');
    lines.endLine();
  }
}

}  // namespace

int maxCNFVarNr(const ClauseSet& cnf) { return maxLiteral(cnf, std::numeric_limits<int>::max()); }

int maxCNFOrgVarNr(const ClauseSet& cnf) { return maxLiteral(cnf, varNrLimit - 1); }

void showCNF(const ClauseSet& cnf, std::string name) {
  const int shift = varNrLimit - maxCNFOrgVarNr(cnf);
  writeDimacs(cnf, name.append(".cnf"), maxCNFVarNr(cnf) - shift, shift);
}

void showCNF(const ClauseSet& cnf) {
  writeDimacs(cnf, "test.cnf", maxCNFVarNr(cnf), std::numeric_limits<int>::max());
}
