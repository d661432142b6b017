// The check against all states one by one, on random networks: right certificates pass, and of
// thousands of damaged ones only those that prove what they say.

#include <gtest/gtest.h>

#include "tests/workbench/proof/randomproofs.hpp"
#include "workbench/proof/checker.hpp"

namespace tpn {
namespace {

bool passes(const Sample& s, const Certificate& certificate) {
  const Recheck result = recheck(s.net, s.goal, certificate, {});
  EXPECT_NE(result.result, Recheck::stopped);
  return result.result == Recheck::confirmed;
}

// What a certificate that passes promises.
bool keepsItsPromise(const Sample& s, const Certificate& certificate) {
  const Certificate flat = flattened(certificate);
  return s.never && std::all_of(s.reachable.begin(), s.reachable.end(),
                                [&](const auto& state) { return states::inside(flat, state); });
}

// With a deadlock for its goal a certificate may pass whose invariant holds deadlocks that no run
// leads to: those before the last unit of time in them.
bool isAsGoodAsItSays(const Sample& s, const Certificate& certificate) {
  if (asksWhatComes(s.goal)) return keepsItsPromise(s, certificate);
  return states::proves(s.scaled, s.goal, flattened(certificate));
}

class RandomNetworks : public testing::TestWithParam<MoveKinds> {};

TEST_P(RandomNetworks, AreProvedByTheirReachableStatesExactlyWhereTheGoalIsNone) {
  Samples samples(1, GetParam());
  int never = 0;
  for (int i = 0; i < 400; ++i) {
    const Sample s = samples.next();
    EXPECT_EQ(passes(s, s.proof), s.never) << i;
    never += s.never ? 1 : 0;
  }
  EXPECT_GT(never, 100);
  EXPECT_LT(never, 350);
}

TEST_P(RandomNetworks, AreProvedByOneClauseOfEachOrbit) {
  Samples samples(2, GetParam());
  std::size_t spared = 0;
  for (int i = 0; i < 100; ++i) {
    const Sample s = samples.nextSymmetric();
    EXPECT_EQ(passes(s, s.proof), s.never) << i;
    spared += closed(s.proof.clauses, s.proof.generators).size() - s.proof.clauses.size();
  }
  EXPECT_GT(spared, 100U);
}

INSTANTIATE_TEST_SUITE_P(OfMoves, RandomNetworks,
                         testing::Values(MoveKinds::plain, MoveKinds::all));

// One thing about the certificate changed.
Certificate damaged(Certificate c, Samples& random, const Certificate& another) {
  if (random.upTo(9) == 0 || c.clauses.empty()) return another;
  const std::size_t at = random.upTo(c.clauses.size() - 1);
  AtomClause& clause = c.clauses[at];
  const std::size_t kind = random.upTo(3);
  if (kind == 0 || clause.empty()) {
    c.clauses.erase(c.clauses.begin() + static_cast<std::ptrdiff_t>(at));
    return c;
  }
  Atom& atom = clause[random.upTo(clause.size() - 1)];
  if (kind == 1) atom = ~atom;
  if (kind == 2) atom.value = static_cast<std::int64_t>(random.upTo(3));
  if (kind == 3) clause.erase(clause.begin() + (&atom - clause.data()));
  return c;
}

struct Count {
  int passed = 0;
  int refused = 0;
};

Count judgeDamaged(Samples& samples, bool symmetric, int rounds) {
  Count count;
  Certificate another;
  for (int i = 0; i < rounds; ++i) {
    const Sample s = symmetric ? samples.nextSymmetric() : samples.next();
    for (int j = 0; j < 5; ++j) {
      const Certificate mutant = damaged(s.proof, samples, another);
      const bool passed = passes(s, mutant);
      if (passed) {
        EXPECT_TRUE(keepsItsPromise(s, mutant)) << i << " " << j;
        EXPECT_TRUE(isAsGoodAsItSays(s, mutant)) << i << " " << j;
      }
      ++(passed ? count.passed : count.refused);
    }
    another = s.proof;
  }
  return count;
}

class DamagedCertificates : public testing::TestWithParam<MoveKinds> {};

TEST_P(DamagedCertificates, PassOnlyWhereTheyAreRight) {
  Samples samples(3, GetParam());
  const Count count = judgeDamaged(samples, false, 400);
  EXPECT_GT(count.passed, 100);
  EXPECT_GT(count.refused, 1000);
}

TEST_P(DamagedCertificates, WithSymmetryPassOnlyWhereTheyAreRight) {
  Samples samples(4, GetParam());
  const Count count = judgeDamaged(samples, true, 60);
  EXPECT_GT(count.passed, 20);
  EXPECT_GT(count.refused, 100);
}

// The other way round: what proves the goal unreachable is accepted.
TEST_P(DamagedCertificates, PassWhereTheyAreRight) {
  Samples samples(5, GetParam());
  const int count = GetParam() == MoveKinds::plain ? 300 : 2000;  // many ask what comes
  int right = 0;
  for (int i = 0; i < count; ++i) {
    const Sample s = samples.next();
    const Certificate mutant = damaged(s.proof, samples, {});
    if (asksWhatComes(s.goal) || !states::proves(s.scaled, s.goal, mutant)) continue;
    // The check demands that what is named exists.
    const std::string found = recheck(s.net, s.goal, mutant, {}).complaint;
    if (found.find("no such thing") != std::string::npos) continue;
    EXPECT_EQ(found, "") << i;
    ++right;
  }
  EXPECT_GT(right, 30);
}

INSTANTIATE_TEST_SUITE_P(OfMoves, DamagedCertificates,
                         testing::Values(MoveKinds::plain, MoveKinds::all));

}  // namespace
}  // namespace tpn
