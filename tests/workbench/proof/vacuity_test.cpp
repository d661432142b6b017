// The guard against a check that lets nothing happen.

#include "workbench/proof/vacuity.hpp"

#include <gtest/gtest.h>

#include "tests/workbench/proof/fischer.hpp"

namespace tpn {
namespace {

Atom at(std::size_t process, int location) { return {Atom::location, true, process, location}; }

TEST(Vacuity, IsNoneWhereTheCheckAllowsWhatTheReplayDoes) {
  EXPECT_EQ(vacuityComplaint(fischer::network(3), fischer::clauses(3), {}), "");
}

// One step and a delay after the initial state, the earliest and the latest of it.
TEST(Vacuity, NamesWhatLeadsOutsideAtFirst) {
  Network net;
  net.processes = {{{0, 1}, {}}};
  net.transitions = {{{2, 6}, {{0, 0, 1}}}};  // a unit is 2
  EXPECT_EQ(vacuityComplaint(net, {{at(0, 0)}}, {}),
            "transition 1 leads outside at first: clause 1@0");
  EXPECT_EQ(vacuityComplaint(net, {{{Atom::clock, false, 0, 3}}}, {}),
            "transition 1 leads outside at first: clause -1>=3");
  EXPECT_EQ(vacuityComplaint(net, {{{Atom::clock, false, 0, 4}}}, {}), "");
}

TEST(Vacuity, EndsAtACheckpoint) {
  EXPECT_THROW(
      vacuityComplaint(fischer::network(3), fischer::clauses(3), Checkpoint([] { return true; })),
      Interrupted);
}

}  // namespace
}  // namespace tpn
