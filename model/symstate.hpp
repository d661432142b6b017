// The variables of one symbolic state: location bits, then the clock valuation.

#pragma once

#include "boolformvect/boolformvect.hpp"
#include "clock/clockval.hpp"

class SymState {
 public:
  int nrLocBits;
  BoolFormVect loc;  // nrLocBits variables from the state's first one on
  ClockVal clocks;   // its variables follow

  SymState(int locBits, int nrOfClocks, int intBits, int frBits, int first)
      : nrLocBits(locBits),
        loc(locBits, first),
        clocks(nrOfClocks, intBits, frBits, first + locBits) {}

  void show() const {
    loc.show();
    clocks.show();
  }
};
