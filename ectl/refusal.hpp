// Why a run cannot be made: input without a meaning or that cannot be read, a path that does not
// fit. Thrown where the reason is found; whoever asked for the run tells it.

#pragma once

#include <stdexcept>

// what() is the reason in one line, without a line end and without the program's name.
struct Refusal : std::runtime_error {
  using std::runtime_error::runtime_error;
};

// A property with an operator that has too little before it.
struct MissingOperand : Refusal {
  using Refusal::Refusal;
};
