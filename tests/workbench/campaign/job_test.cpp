// A job as a line, and back.

#include "workbench/campaign/job.hpp"

#include <gtest/gtest.h>

namespace tpn {
namespace {

TEST(JobLine, GivesTheSameJobAgain) {
  Job job;
  job.number = 17;
  job.network = "ab.tpn";
  job.question = "cd.phi";
  job.engine = "ic3";
  job.seed = 3;
  job.name = "two \"phases\"\n";
  job.asked = "atleast(2, *.critical)";
  job.size = 5;
  job.swept = {{"reply", true, 4}, {"delay", false, 0}};
  job.cube = {{7, 8, true, {0, 2}}, {1, 6, false, {1}}};
  EXPECT_EQ(readJobLine(jobLine(job)), job);
  EXPECT_EQ(jobLine(job).find('\n'), std::string::npos);
}

TEST(JobLine, OfAnythingElseIsRefused) {
  for (const char* line : {"", "{}", "[]", "{\"job\": \"x\"}", "job 1"})
    EXPECT_THROW(readJobLine(line), std::runtime_error) << line;
}

}  // namespace
}  // namespace tpn
