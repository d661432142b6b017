// clauses NAME: x and (x = y), written to NAME.cnf as clauses.

#include "boolform/boolform.hpp"
#include "boolform/clauseset.hpp"
#include "boolform/dimacs.hpp"

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  const BoolForm x(1);
  const BoolForm y(2);
  const BoolForm same = equ(x, y);
  const BoolForm both = con(x, same);
  ClauseSet clauses;
  both.toCNF(clauses);
  return showCNF(clauses, argv[1]).whole() ? 0 : 1;
}
