#include "translation/reachtran.hpp"

#include <algorithm>
#include <ctime>
#include <iostream>
#include <new>
#include <unordered_map>
#include <vector>

#include "boolform/clauseset.hpp"
#include "boolform/dimacs.hpp"
#include "translation/pathlimit.hpp"
#include "translation/stateproperty.hpp"

namespace {

std::size_t storeSize() { return BoolForm::tv.size(); }

BoolForm pop(std::vector<BoolForm>& s) {
  const BoolForm top = s.back();
  s.pop_back();
  return top;
}

// A line whose beginning is seen before its end is known. It is ended whatever happens, so that a
// refusal gets a line of its own.
class ProgressLine {
 public:
  ProgressLine(std::ostream& out, const char* beginning) : out_(out) { out_ << beginning; }
  ~ProgressLine() { out_ << std::endl; }
  ProgressLine(const ProgressLine&) = delete;
  ProgressLine& operator=(const ProgressLine&) = delete;

 private:
  std::ostream& out_;
};

BoolForm conjunction(const BoolForm& property, const BoolForm& path) {
  const ProgressLine line(std::cout, "Conjunction: ");
  std::cout << std::flush;
  const BoolForm whole = con(property, path);
  std::cout << storeSize();
  return whole;
}

void createClauses(const BoolForm& whole, ClauseSet& cnf) {
  const ProgressLine line(std::cerr, "Creating clauses: ");
  whole.toCNF(cnf);
  std::cerr << cnf.size();
}

constexpr int rotation = 3;  // time, action, adjust

}  // namespace

int EctlTransl::getStartNr(int i) const {
  return i <= 0 ? 1 : static_cast<int>(1 + i * model.getSymStateLen());
}

BoolForm EctlTransl::step(int i, const SymState& from, const SymState& to) const {
  switch (i % rotation) {
    case 0:
      return model.timeSucc(from, to);
    case 1:
      return model.actionSucc(from, to);
    default:
      return model.adjustSucc(from, to);
  }
}

BoolForm EctlTransl::symbPath() {
  BoolForm path = model.fI(0, stateAt(0));
  for (int i = 0; i < k;) {
    const Milestone begin{storeSize(), static_cast<unsigned>(model.nrInvTerms), path};
    for (const int end = std::min(i + rotation, k); i < end; ++i) {
      const BoolForm next = step(i, stateAt(i), stateAt(i + 1));
      path = con(path, next);
    }
    if (i > rotation) i += repeatRotation(begin, path, (k - i) / rotation);
  }
  return path;
}

// Every rotation asks the store for the same formulas as the one before, about states three further
// on. Once the nodes of two rotations agree that far, so do those of all later ones: what a
// rotation finds in the store already, rather than making it, is about the state that it shares
// with the rotation before, and was found there, or not, in the same way. The nodes of the others
// are then copied, at a tenth of the price of building them (docs/performance.md).
int EctlTransl::repeatRotation(const Milestone& begin, BoolForm& path, int times) {
  const int nodes = static_cast<int>(storeSize() - begin.nodes);
  const Distance rotated{getStartNr(rotation) - getStartNr(0), nodes};
  if (times == 0 || !BoolForm::lastRepeat(rotated)) return 0;
  if (!(moved(begin.path, rotated) == path)) return 0;
  BoolForm::repeatLast(rotated, times);
  path = moved(path, times * rotated);
  const unsigned terms = static_cast<unsigned>(model.nrInvTerms) - begin.invTerms;
  model.countInvTerms(static_cast<unsigned>(times) * terms);
  return times * rotation;
}

BoolForm EctlTransl::inSomeState(const EctlForm& property) {
  StateProperty stateProperty(property);
  BoolForm r(false);
  for (int i = 0; i <= k; ++i) {
    const BoolForm here =
        stateProperty.isFormula() ? stateProperty.in(stateAt(i), model) : transl(property, i);
    r = dis(r, here);
  }
  return r;
}

BoolForm EctlTransl::transl(const EctlForm& property) {
  const BoolForm r = inSomeState(property);
  std::cerr << "translation : " << storeSize() << std::endl;
  return r;
}

BoolForm EctlTransl::transl(const EctlForm& property, int i) {
  const SymState state = stateAt(i);
  // Building a proposition again would give the same formula and no new node.
  std::unordered_map<int, BoolForm> known;
  const auto proposition = [&](int nr) {
    const auto found = known.find(nr);
    return found != known.end() ? found->second
                                : known.emplace(nr, model.fP(nr, state)).first->second;
  };
  std::vector<BoolForm> s;
  for (const OnpNode& item : property.onp) {
    switch (item.op) {
      case EctlOper::truth:
        s.push_back(BoolForm(true));
        break;
      case EctlOper::prop:
        s.push_back(proposition(item.arg));
        break;
      case EctlOper::negProp:
        s.push_back(neg(proposition(item.arg)));
        break;
      case EctlOper::conj:
      case EctlOper::disj: {
        const BoolForm b = pop(s);
        const BoolForm a = pop(s);
        s.push_back(item.op == EctlOper::conj ? con(a, b) : dis(a, b));
        break;
      }
      default:
        return BoolForm(false);  // temporal operators are not translated
    }
  }
  assert(s.size() == 1);
  return s.back();
}

WrittenRun EctlTransl::checkEctlFormula(const std::string& name) {
  refuseTooManyVariables(model, k);
  try {
    return run(name);
  } catch (const NodeNumbersExhausted&) {
    refuseTooManyNodes(model, k);
  } catch (const std::bad_alloc&) {
    refuseOutOfMemory(model, k);
  }
}

WrittenRun EctlTransl::run(const std::string& name) {
  const EctlForm& property = *model.formula;
  const std::clock_t start = std::clock();

  std::cerr << "Creating symbolic paths" << std::endl;
  const BoolForm path = symbPath();
  std::cerr << "End of symbolic path: " << storeSize() << std::endl;

  std::cerr << "Translation" << std::endl;
  const BoolForm translated = transl(property);
  std::cerr << "End of translation: " << storeSize() << std::endl;

  const BoolForm whole = conjunction(translated, path);
  ClauseSet cnf;
  createClauses(whole, cnf);
  WrittenRun written = writeDown(cnf, name);

  const std::clock_t end = std::clock();
  std::cerr << "Time consumed : ";
  std::cerr.precision(4);
  std::cerr << static_cast<double>(end - start) / 1000000.0 << std::endl;
  return written;
}

WrittenRun EctlTransl::writeDown(const ClauseSet& cnf, const std::string& name) const {
  const ProgressLine line(std::cerr, "Writing down clauses ");
  WrittenRun written;
  written.variables = headerVariables(cnf);
  written.clauseCount = cnf.size();
  written.clauses = showCNF(cnf, name);
  written.map = model.showLCK(k, maxCNFOrgVarNr(cnf), name);
  return written;
}
