// Networks as circuits, read back from their files: step by step against all states of random
// networks, and what a hardware model checker says of them against what can be reached.

#include "workbench/proof/machinecircuit.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/driver/runprogram.hpp"
#include "tests/workbench/proof/aigerfile.hpp"
#include "tests/workbench/proof/fischer.hpp"
#include "tests/workbench/proof/randomproofs.hpp"

namespace tpn {
namespace {

using testing::HasSubstr;

// A state as the latches' names tell it, and back.
std::vector<bool> latchesOf(const aiger::File& file, const states::State& s) {
  std::vector<bool> values;
  for (const std::string& name : file.latchNames) {
    std::size_t end = 0;
    const std::size_t process = std::stoul(name, &end) - 1;
    const std::int64_t value = std::stoll(name.substr(end + (name[end] == '>' ? 2 : 1)));
    if (name[end] == '@')
      values.push_back(s.locations[process] == value);
    else if (name[end] == '>')
      values.push_back(s.clocks[process] >= value);
    else
      values.push_back(((s.clocks[process] >> value) & 1) != 0);
  }
  return values;
}

std::vector<bool> bits(std::size_t number, std::size_t count) {
  std::vector<bool> result;
  for (std::size_t bit = 0; bit < count; ++bit) result.push_back(((number >> bit) & 1U) != 0);
  return result;
}

// The state after choice 0 (a unit of time) or n (transition n), or the same one.
states::State after(const Network& scaled, std::size_t choice, const states::State& s) {
  if (choice > scaled.transitions.size()) return s;
  const states::Explorer explorer(scaled);
  return choice == 0 ? explorer.waited(s) : explorer.fired(choice - 1, s);
}

std::string wrongStep(const Sample& sample, const aiger::File& file, const states::State& s,
                      std::size_t choice) {
  const aiger::Values values(file, bits(choice, file.inputs.size()), latchesOf(file, s));
  const std::vector<bool> expected = latchesOf(file, after(sample.scaled, choice, s));
  for (std::size_t i = 0; i < file.next.size(); ++i)
    if (values.of(file.next[i]) != expected[i])
      return "choice " + std::to_string(choice) + " gives another " + file.latchNames[i];
  return "";
}

// How often a checkpoint is asked, and that whoever asks ends where it throws, whenever that is.
template <class Work>
int asksAndEnds(const Work& work) {
  int asked = 0;
  work(Checkpoint([&] { return ++asked < 0; }));
  for (int last = 1; last <= asked; ++last) {
    int calls = 0;
    EXPECT_THROW(work(Checkpoint([&] { return ++calls == last; })), Interrupted) << last;
  }
  return asked;
}

TEST(MachineCircuit, EndsAtACheckpointOfEachTransitionAndProcess) {
  const Network net = fischer::network(3);
  const int asked = asksAndEnds([&](const Checkpoint& checkpoint) {
    makeMachineCircuit(net, fischer::violation(3), checkpoint);
  });
  EXPECT_GE(asked, static_cast<int>(net.transitions.size() + net.processes.size()));
}

TEST(Witness, EndsAtACheckpoint) {
  const Network net = fischer::network(3);
  const Certificate flat = flattened(fischer::proof(3));
  const MachineCircuit machine = makeMachineCircuit(net, fischer::violation(3));
  EXPECT_GT(asksAndEnds([&](const Checkpoint& checkpoint) {
              witnessCircuit(net, machine, flat, checkpoint);
            }),
            0);
}

class MachineCircuits : public testing::TestWithParam<MoveKinds> {};

TEST_P(MachineCircuits, DoWhatTheNetworkDoes) {
  Samples samples(11, GetParam());
  for (int i = 0; i < 60; ++i) {
    const Sample sample = samples.next();
    const MachineCircuit m = makeMachineCircuit(sample.net, sample.goal);
    const aiger::File file = aiger::read(asciiAiger(m.circuit, ""));
    const states::Explorer explorer(sample.scaled);
    for (const states::State& s : explorer.everything())
      for (std::size_t choice = 0; choice < std::size_t{1} << file.inputs.size(); ++choice)
        ASSERT_EQ(wrongStep(sample, file, s, choice), "") << i;
  }
}

TEST_P(MachineCircuits, AreBadInTheGoalsStates) {
  Samples samples(12, GetParam());
  int deadlocks = 0;
  int unsafe = 0;
  for (int i = 0; i < 200; ++i) {
    const Sample sample = samples.next();
    const MachineCircuit m = makeMachineCircuit(sample.net, sample.goal);
    const aiger::File file = aiger::read(binaryAiger(m.circuit, ""));
    bool reached = false;
    for (const states::State& s : sample.reachable) {
      const aiger::Values values(file, bits(0, file.inputs.size()), latchesOf(file, s));
      const bool isGoal = states::Explorer(sample.scaled).isGoal(sample.goal, s);
      const bool isBad = values.of(file.bads.at(0));
      EXPECT_TRUE(isBad == isGoal || (asksWhatComes(sample.goal) && isGoal));
      reached = reached || values.of(file.bads.at(0));
    }
    EXPECT_EQ(reached, !sample.never);
    deadlocks += asksDeadlock(sample.goal) && reached ? 1 : 0;
    unsafe += asksSafety(sample.goal) && reached ? 1 : 0;
  }
  EXPECT_GT(deadlocks, 10);
  EXPECT_TRUE(GetParam() == MoveKinds::plain || unsafe > 10);
}

INSTANTIATE_TEST_SUITE_P(OfMoves, MachineCircuits,
                         testing::Values(MoveKinds::plain, MoveKinds::all));

// Bits in place of unary code: the times are so long that 64 steps would not do.
TEST(MachineCircuit, CountsInBitsWhereClocksAreWide) {
  Network net = twoProcesses();
  net.transitions[0].interval = {99, 100};
  net.transitions[1].interval = {1, {}};
  net.transitions[2].interval = {70, 71};
  const Sample sample{net, inUnits(net), deadlockProperty(), {}, false, {}};
  const aiger::File file =
      aiger::read(asciiAiger(makeMachineCircuit(net, deadlockProperty()).circuit, ""));
  EXPECT_THAT(file.latchNames, testing::Contains("1:6"));
  EXPECT_THAT(file.latchNames, testing::Contains("2:6"));
  EXPECT_EQ(file.latches.size(), 2U + 7U + 7U);
  for (const states::State& s : states::Explorer(sample.scaled).reachable())
    for (std::size_t choice = 0; choice < 4; ++choice)
      ASSERT_EQ(wrongStep(sample, file, s, choice), "");
}

class Abc : public testing::TestWithParam<MoveKinds> {
 protected:
  std::string says(const Circuit& circuit) const {
    place.write("model.aig", binaryAiger(circuit, ""));
    return place.run("berkeley-abc", {"-q", "read_aiger model.aig; pdr -T 60; print_status"}).out;
  }
  Workplace place;
};

TEST_P(Abc, AgreesWithTheStatesOfRandomNetworks) {
  Samples samples(13, GetParam());
  for (int i = 0; i < 60; ++i) {
    const Sample sample = samples.next();
    EXPECT_THAT(says(makeMachineCircuit(sample.net, sample.goal).circuit),
                HasSubstr(sample.never ? "Status = 1" : "Status = 0"))
        << i;
  }
}

INSTANTIATE_TEST_SUITE_P(OfMoves, Abc, testing::Values(MoveKinds::plain, MoveKinds::all));

// What a checker of certificates asks, each as a question to a solver.
class WitnessCheck {
 public:
  WitnessCheck(const aiger::File& model, const aiger::File& witness)
      : model_(model), witness_(witness) {}

  bool isReset() const { return mapped(model_.latches, witness_.latchNames); }
  bool isInput() const { return mapped(model_.inputs, witness_.inputNames); }

  bool isTransition() {
    Both b(model_, witness_);
    std::vector<int> different;
    for (std::size_t i = 0; i < model_.latches.size(); ++i) {
      const int d = 2 * static_cast<int>(witness_.variables) + 10 + static_cast<int>(i);
      b.model.add({-d, b.model.literal(model_.next[i]), b.witness.literal(witness_.next[i])});
      b.model.add({-d, -b.model.literal(model_.next[i]), -b.witness.literal(witness_.next[i])});
      different.push_back(d);
    }
    b.model.add(different);
    return b.impossible();
  }

  bool isSafe() {
    Both b(model_, witness_);
    b.model.add({b.model.literal(model_.bads[0])});
    b.witness.add({-b.witness.literal(witness_.bads[0])});
    return b.impossible();
  }

  bool isBase() {
    Both b(model_, witness_);
    for (const aiger::Literal latch : witness_.latches) b.witness.add({-b.witness.literal(latch)});
    b.witness.add({b.witness.literal(witness_.bads[0])});
    return b.impossible();
  }

  bool isInductive() {
    Both b(witness_, witness_, false);
    b.model.add({-b.model.literal(witness_.bads[0])});
    for (std::size_t i = 0; i < witness_.latches.size(); ++i)
      b.model.equal(b.model.literal(witness_.next[i]), b.witness.literal(witness_.latches[i]));
    b.witness.add({b.witness.literal(witness_.bads[0])});
    return b.impossible();
  }

 private:
  static bool mapped(const std::vector<aiger::Literal>& to, const std::vector<std::string>& names) {
    std::vector<std::string> expected;
    for (const aiger::Literal literal : to) expected.push_back("=" + std::to_string(literal));
    return names == expected;
  }

  // Both files in a solver, inputs and latches shared or not.
  struct Both {
    Both(const aiger::File& m, const aiger::File& w, bool shared = true)
        : model(m, *solver, 0), witness(w, *solver, static_cast<int>(m.variables) + 2) {
      if (!shared) return;
      for (std::size_t i = 0; i < m.inputs.size(); ++i)
        model.equal(model.literal(m.inputs[i]), witness.literal(w.inputs[i]));
      for (std::size_t i = 0; i < m.latches.size(); ++i)
        model.equal(model.literal(m.latches[i]), witness.literal(w.latches[i]));
    }
    bool impossible() const { return solver->solve() == Solver::Result::unsatisfiable; }

    std::unique_ptr<Solver> solver = makeCadical(Use::manyShortSearches);
    aiger::Clauses model;
    aiger::Clauses witness;
  };

  const aiger::File& model_;
  const aiger::File& witness_;
};

void expectRightWitness(const Network& net, const Goal& goal, const Certificate& flat) {
  const MachineCircuit m = makeMachineCircuit(net, goal);
  const aiger::File model = aiger::read(binaryAiger(m.circuit, ""));
  const aiger::File witness = aiger::read(asciiAiger(witnessCircuit(net, m, flat), ""));
  WitnessCheck check(model, witness);
  EXPECT_TRUE(check.isReset());
  EXPECT_TRUE(check.isInput());
  EXPECT_TRUE(check.isTransition());
  EXPECT_TRUE(check.isSafe());
  EXPECT_TRUE(check.isBase());
  EXPECT_TRUE(check.isInductive());
}

TEST(Witness, OfFischerPassesEveryCheck) {
  expectRightWitness(fischer::network(3), fischer::violation(3), flattened(fischer::proof(3)));
}

TEST(Witness, OfRandomNetworksPassesEveryCheck) {
  for (const MoveKinds kinds : {MoveKinds::plain, MoveKinds::all}) {
    Samples samples(14, kinds);
    for (int i = 0; i < 60; ++i) {
      const Sample sample = i % 2 == 0 ? samples.next() : samples.nextSymmetric();
      if (sample.never) expectRightWitness(sample.net, sample.goal, flattened(sample.proof));
    }
  }
}

TEST(Witness, WithoutAClauseIsFoundOut) {
  const Network net = fischer::network(2);
  const Goal goal = fischer::violation(2);
  Certificate flat = flattened(fischer::proof(2));
  flat.clauses.erase(flat.clauses.begin() + 5);
  const MachineCircuit m = makeMachineCircuit(net, goal);
  const aiger::File model = aiger::read(binaryAiger(m.circuit, ""));
  const aiger::File witness = aiger::read(asciiAiger(witnessCircuit(net, m, flat), ""));
  EXPECT_FALSE(WitnessCheck(model, witness).isInductive());
}

using AbcOnWitnesses = Abc;

TEST_F(AbcOnWitnesses, AreProved) {
  const Network net = fischer::network(4);
  const MachineCircuit m = makeMachineCircuit(net, fischer::violation(4));
  EXPECT_THAT(says(witnessCircuit(net, m, flattened(fischer::proof(4)))), HasSubstr("Status = 1"));
}

}  // namespace
}  // namespace tpn
