// Where long work asks whether it is still wanted: readers between lines, encoders between
// formulas.
//
// A checkpoint is passed down as the last argument and called now and then, often enough that
// nothing takes a second between two calls. The work does not learn why it ends or who ends it;
// what it has built so far unwinds.

#pragma once

#include <cstddef>
#include <exception>
#include <functional>
#include <utility>

namespace tpn {

// Thrown by a checkpoint. Whoever made the checkpoint catches it and knows the reason.
struct Interrupted : std::exception {
  const char* what() const noexcept override { return "interrupted"; }
};

class Checkpoint {
 public:
  Checkpoint() = default;  // lets everything pass
  explicit Checkpoint(std::function<bool()> over) : over_(std::move(over)) {}

  // Throws Interrupted once it is over.
  void operator()() const {
    if (over_ && over_()) throw Interrupted();
  }

  // The same for loops whose rounds are shorter than the question: asks in rounds 0, 4096, ...
  void at(std::size_t round) const {
    if (round % 4096 == 0) (*this)();
  }

 private:
  std::function<bool()> over_;
};

}  // namespace tpn
