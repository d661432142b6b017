// Which places can be told apart by sets of places that always hold the same number of tokens.
//
// Such a set is a vector of zeros and ones that no transition's effect changes. A transition that
// moves a token from one place to another, whatever else it gives back where it took it, says that
// both are in the set or neither is: they become one class. A transition whose effect on the
// classes is all gain or all loss says that none of these is in. Merging goes on until no
// transition says either; each class is renamed into the larger one, so the time is that of the
// arcs, but for a logarithm. What remains are the transitions that balance three classes and more.

#pragma once

#include <cstddef>
#include <deque>
#include <map>
#include <vector>

#include "workbench/base/checkpoint.hpp"
#include "workbench/nets/petrinet.hpp"

namespace tpn {

class PlaceClasses {
 public:
  // The sets are to hold one token at most. Transitions that are not live count for nothing.
  PlaceClasses(const PetriNet& net, const std::vector<bool>& live, const Checkpoint& checkpoint);

  struct Class {
    std::vector<std::size_t> places;
    int tokens = 0;
    bool excluded = false;  // in no set
  };
  // Some are empty: they have become part of another.
  const std::vector<Class>& classes() const { return classes_; }

  // A transition's effect on the classes: tokens won or lost, none of them 0.
  using Effect = std::map<std::size_t, int>;
  std::vector<Effect> effects() const;  // those that still say something

 private:
  struct Column {
    Effect entries;
    int winning = 0;  // how many entries are above 0
  };

  void addEffect(const PetriNet::Transition& t);
  void change(Column& column, std::size_t key, int by);
  void settle(const Checkpoint& checkpoint);
  void look(std::size_t column);
  void merge(std::size_t a, std::size_t b);
  void exclude(std::size_t key);
  void excludeAll(std::size_t column);
  void touch(std::size_t column);

  std::vector<Class> classes_;
  std::vector<std::vector<std::size_t>> occurrences_;  // [class]: columns, with repetitions
  std::vector<Column> columns_;
  std::deque<std::size_t> waiting_;
  std::vector<bool> isWaiting_;
};

}  // namespace tpn
