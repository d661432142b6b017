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

// Where there are many copies, a part of one stands in the way when their clauses are ordered: it
// is cheaper to build a step or two more.
bool isWorthCopying(int steps) {
  constexpr int many = 8 * rotation;
  return steps > 0 && (steps < many || steps % rotation == 0);
}

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
  std::vector<Milestone> reached;
  const auto mark = [&] {
    reached.push_back({storeSize(), static_cast<unsigned>(model.nrInvTerms), path});
  };
  mark();
  for (int i = 0; i < k; ++i) {
    const BoolForm next = step(i, stateAt(i), stateAt(i + 1));
    path = con(path, next);
    mark();
    if (i >= rotation && isWorthCopying(k - 1 - i) && repeats(reached)) return repeatLast(reached);
  }
  return path;
}

// Every rotation asks the store for the same formulas as the one before, about states three further
// on. What it finds there already, rather than making it, is about the state that it shares with
// the rotation before. The steps from state 1 to 4 are the first that know nothing of the initial
// one: where what there is about state 4 is what there was about state 1, the next three steps find
// the same, and so on for the steps from state 2 and 3. Otherwise they do once the nodes of two
// rotations are seen to agree.
bool EctlTransl::repeats(const std::vector<Milestone>& reached) const {
  const Milestone& begin = reached.end()[-1 - rotation];
  const BoolForm& path = reached.back().path;
  const Distance rotated = rotationSince(begin);
  if (!(moved(begin.path, rotated) == path)) return false;
  const int steps = static_cast<int>(reached.size()) - 1;
  const bool isFirst = steps <= 2 * rotation && path.nr == path.maxVarNr();
  return (isFirst && BoolForm::lastWillRepeat(rotated, getStartNr(steps - rotation))) ||
         BoolForm::lastRepeat(rotated);
}

// The steps that are still to come are copied, at a tenth of the price of building them
// (docs/performance.md): whole rotations, and the part of one.
BoolForm EctlTransl::repeatLast(const std::vector<Milestone>& reached) const {
  const int steps = k + 1 - static_cast<int>(reached.size());
  const int times = steps / rotation;
  const Milestone& begin = reached.end()[-1 - rotation];
  const Milestone& part = (&begin)[steps % rotation];
  const Distance rotated = rotationSince(begin);
  BoolForm::repeatLast(rotated, times, static_cast<int>(part.nodes - begin.nodes));
  const unsigned terms = static_cast<unsigned>(model.nrInvTerms) - begin.invTerms;
  model.countInvTerms(static_cast<unsigned>(times) * terms + part.invTerms - begin.invTerms);
  return moved(part.path, (times + 1) * rotated);
}

Distance EctlTransl::rotationSince(const Milestone& begin) const {
  return {getStartNr(rotation) - getStartNr(0), static_cast<int>(storeSize() - begin.nodes)};
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
