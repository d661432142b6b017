// The recheck of a proof beside finding it, on questions of `tpn make`; the proofs are the
// prover's own. "found" is what tpn does for its answer, so it has a recheck in it; "rechecked" is
// the certificate's check alone, "flat" that of the same certificate with all clauses written out
// and no symmetry. Beside the ratios stand the numbers of clauses: those that are asked about, and
// all of them, which are assumed.

#include "bench/ratios.hpp"
#include "workbench/families/families.hpp"
#include "workbench/network/propertyreader.hpp"
#include "workbench/proof/checker.hpp"
#include "workbench/search/proving.hpp"

namespace {

using namespace tpn;

struct Question {
  Network net;
  Goal goal;
};

Question question(const char* family, const char* asked, int size) {
  const Family& chosen = *familyNamed(family);
  Diagnostics none;
  const std::string text = questionNamed(chosen.questions, asked)->postfix(size);
  return {chosen.network(size), *readProperty("", text, none)};
}

std::optional<Certificate> proof(const Question& q) {
  return proved(
             q.net, q.goal, [] { return false; }, [](const ProverProgress&) {})
      .certificate;
}

void tellClauses(benchmark::State& state, const Certificate& certificate) {
  state.counters["clauses"] = static_cast<double>(certificate.clauses.size());
  state.counters["all"] = static_cast<double>(flattened(certificate).clauses.size());
}

void found(benchmark::State& state, const char* family, const char* asked) {
  const Question q = question(family, asked, static_cast<int>(state.range(0)));
  std::optional<Certificate> certificate;
  while (state.KeepRunning()) certificate = proof(q);
  if (certificate)
    tellClauses(state, *certificate);
  else
    state.SkipWithError("no proof");
}

void check(benchmark::State& state, const Question& q, const Certificate& certificate) {
  while (state.KeepRunning())
    if (recheck(q.net, q.goal, certificate, {}).result != Recheck::confirmed)
      state.SkipWithError("the proof does not check");
  tellClauses(state, certificate);
}

void rechecked(benchmark::State& state, const char* family, const char* asked) {
  const Question q = question(family, asked, static_cast<int>(state.range(0)));
  check(state, q, proof(q).value());
}

void flat(benchmark::State& state, const char* family, const char* asked) {
  const Question q = question(family, asked, static_cast<int>(state.range(0)));
  check(state, q, flattened(proof(q).value()));
}

BENCHMARK_CAPTURE(found, , "fischer", "violation")
    ->Name("fischer:found")
    ->Arg(3)
    ->Arg(20)
    ->Arg(50)
    ->Arg(70);
BENCHMARK_CAPTURE(rechecked, , "fischer", "violation")
    ->Name("fischer:rechecked")
    ->Arg(3)
    ->Arg(20)
    ->Arg(50)
    ->Arg(70);
BENCHMARK_CAPTURE(flat, , "fischer", "violation")->Name("fischer:flat")->Arg(3)->Arg(20);
BENCHMARK_CAPTURE(found, , "crossing", "danger")->Name("crossing:found")->Arg(3)->Arg(50);
BENCHMARK_CAPTURE(rechecked, , "crossing", "danger")->Name("crossing:rechecked")->Arg(3)->Arg(50);
BENCHMARK_CAPTURE(flat, , "crossing", "danger")->Name("crossing:flat")->Arg(3)->Arg(50);
BENCHMARK_CAPTURE(found, , "ring", "alarm")->Name("ring:found")->Arg(3)->Arg(30);
BENCHMARK_CAPTURE(rechecked, , "ring", "alarm")->Name("ring:rechecked")->Arg(3)->Arg(30);

}  // namespace

int main(int argc, char** argv) { return runBenchmarks(argc, argv); }
