#include "translation/pathlimit.hpp"

#include <algorithm>
#include <limits>
#include <new>
#include <vector>

#include "boolform/boolform.hpp"
#include "translation/reachtran.hpp"

namespace {

// At the peak, when the clauses are ordered, a conjunction takes 45 bytes and an equivalence 61:
// its key and mark, 16 or 32 for what the buckets hold of its clauses, and 16 for where its own
// buckets begin. Copies take 29, but how many of them a path has shows only when it is there.
constexpr std::int64_t peakBytesPerNode = 64;

std::string refusalText(int k, const std::string& needs, const std::string& about, int largest) {
  const std::string start = "path length " + std::to_string(k) + " needs " + needs + "; ";
  if (largest < 1) return start + "no path length fits";
  return start + "the largest path length that fits is " + about + std::to_string(largest);
}

// The nodes of a whole run with path length k, counted in an empty store.
std::int64_t nodesFor(const NetTimedModel& model, int k) {
  BoolForm::emptyStore();
  EctlTransl translator(model, k);
  const BoolForm path = translator.symbPath();
  const BoolForm property = translator.inSomeState(*model.formula);
  con(property, path);
  return static_cast<std::int64_t>(BoolForm::tv.size());
}

// The largest block of memory to be had in one piece, to the megabyte.
std::int64_t largestBlock() {
  constexpr std::size_t megabyte = 1 << 20;
  std::size_t fits = 0;
  for (std::size_t step = std::size_t{1} << 46; step >= megabyte; step /= 2) {
    void* block = ::operator new(fits + step, std::nothrow);
    if (block != nullptr) fits += step;
    ::operator delete(block);
  }
  return static_cast<std::int64_t>(fits);
}

}  // namespace

PathRefusal::PathRefusal(int k, const std::string& needs, const std::string& about,
                         int largestLength)
    : Refusal(refusalText(k, needs, about, largestLength)), largest(std::max(largestLength, 0)) {}

void refuseTooManyVariables(const NetTimedModel& model, int k) {
  const std::int64_t perState = model.getSymStateLen();
  const std::int64_t needed = (std::int64_t{k} + 1) * perState;
  if (needed <= mostPathVariables) return;
  const std::string most = ", and " + std::to_string(mostPathVariables) + " is the most";
  throw TooManyVariables(k, std::to_string(needed) + " variables" + most, "",
                         static_cast<int>(mostPathVariables / perState - 1));
}

void refuseTooManyNodes(const NetTimedModel& model, int k) {
  const std::int64_t most = std::int64_t{BoolForm::lastNr} - varNrLimit;
  const int largest = largestLengthWithin(model, most);
  throw TooManyNodes(k, "more than " + std::to_string(most) + " formula nodes", "", largest);
}

void refuseOutOfMemory(const NetTimedModel& model, int k) {
  BoolForm::emptyStore();
  const std::int64_t bytes = largestBlock();
  const int largest = std::min(k - 1, largestLengthWithin(model, bytes / peakBytesPerNode));
  const std::string needs = "more memory than the " + std::to_string(bytes >> 20);
  throw TooLittleMemory(k, needs + " MiB there are", "about ", largest);
}

// Every rotation of three steps is the one before on other variables, but for the first, which
// knows the initial state. The node count therefore grows by the same amount every three steps, and
// counting goes on without building.
int largestLengthWithin(const NetTimedModel& model, std::int64_t nodes) {
  constexpr int measured = 12;
  constexpr int rotation = 3;
  const std::int64_t lengths =
      mostPathVariables / std::max<std::int64_t>(model.getSymStateLen(), 1);
  std::vector<std::int64_t> count{0};  // [j]: the nodes for path length j
  int largest = 0;
  for (int j = 1; j < lengths; ++j) {
    if (j <= measured) {
      try {
        count.push_back(nodesFor(model, j));
      } catch (const std::exception&) {  // this one already runs out
        break;
      }
    } else {
      const auto last = count.end() - rotation;  // the same step, one rotation ago
      count.push_back(*last + (*last - *(last - rotation)));
    }
    if (count.back() > nodes) break;
    largest = j;
  }
  BoolForm::emptyStore();
  return largest;
}
