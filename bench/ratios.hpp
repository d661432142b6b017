// Runs the benchmarks of one program and prints, beside each, how many times as fast it was as the
// first of its family, in CPU time. A family is what stands before the first ':' of a benchmark's
// name; between that and the last '/' stands the variant, then the size: "order:tree/1000000".
// Whatever the benchmark has counted stands behind that. Times depend on the machine, ratios
// hardly. The exit status is 1 where a benchmark failed or there was none to run.

#pragma once

#include <benchmark/benchmark.h>

#include <cstdio>
#include <map>
#include <string>
#include <vector>

class RatioReporter : public benchmark::BenchmarkReporter {
 public:
  bool ReportContext(const Context& /*context*/) override {
    std::printf("%-40s %12s %14s\n", "benchmark", "items", "times as fast");
    return true;
  }

  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& run : runs) {
      failed_ = failed_ || run.error_occurred;
      const std::string name = run.benchmark_name();
      const std::size_t size = name.rfind('/');
      const std::string key = name.substr(0, name.find(':')) + name.substr(size);
      const double time = run.GetAdjustedCPUTime();
      const double first = first_.emplace(key, time).first->second;
      std::printf("%-40s %12s %14.1f", name.substr(0, size).c_str(), name.substr(size + 1).c_str(),
                  first / time);
      for (const auto& [counted, count] : run.counters)
        std::printf("  %s %.0f", counted.c_str(), count.value);
      std::printf("\n");
    }
  }

  bool failed() const { return failed_; }

 private:
  bool failed_ = false;
  std::map<std::string, double> first_;  // the time of each family's first member, by size
};

inline int runBenchmarks(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  RatioReporter reporter;
  const std::size_t run = benchmark::RunSpecifiedBenchmarks(&reporter);
  return run == 0 || reporter.failed() ? 1 : 0;
}
