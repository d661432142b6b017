#include "workbench/campaign/judging.hpp"

#include <stdexcept>

#include "workbench/campaign/asking.hpp"
#include "workbench/campaign/cubes.hpp"
#include "workbench/proof/checker.hpp"
#include "workbench/runs/replay.hpp"
#include "workbench/search/answer.hpp"

namespace tpn {

namespace {

// The property holds where the run ends, and its transitions are there.
std::string replayComplaint(const Network& net, const Goal& goal, const Run& run) {
  for (const Step& step : run.steps)
    if (step.transition >= net.transitions.size()) return "its run has a transition of no number";
  if (run.goal != run.steps.size()) return "its run does not end at the goal";
  const std::string complaint = replay(net, goal, run).complaint;
  return complaint.empty() ? "" : "its run does not replay: " + complaint;
}

}  // namespace

const Network& Judge::network(const Job& job) {
  if (!net_ || about_.network != job.network || about_.swept != job.swept) {
    goal_.reset();
    net_ = networkOf(folder_, job);
    about_ = job;
  }
  return *net_;
}

const Goal& Judge::goal(const Job& job) {
  const Network& net = network(job);
  if (!goal_ || about_.question != job.question) {
    confirmed_.clear();
    goal_ = goalOf(folder_, job, net);
    about_ = job;
  }
  return *goal_;
}

std::string Judge::certificateComplaint(const Job& job, const std::string& certificate) {
  const Network& net = network(job);
  const Goal& asked = goal(job);
  if (certificate == confirmed_ && !certificate.empty()) return "";
  try {
    const Recheck result = recheck(net, asked, readCertificate(certificate), {});
    if (result.result != Recheck::confirmed)
      return "its certificate proves nothing: " + result.complaint;
  } catch (const std::runtime_error& e) {
    return "its certificate cannot be read: " + std::string(e.what());
  }
  confirmed_ = certificate;
  return "";
}

std::string Judge::runComplaint(const Job& job, const JobAnswer& answer) {
  if (!answer.run) return "it has no run";
  const Network& net = network(job);
  const Goal& asked = goal(job);
  std::string complaint = replayComplaint(net, asked, *answer.run);
  if (!complaint.empty()) return complaint;
  if (!isIn(job.cube, *answer.run)) return "its run is outside of its cube";
  const bool isUnsafe = !unsafety(net, asked, *answer.run).empty();
  if (isUnsafe == (answer.kind == JobAnswer::unsafe)) return "";
  return isUnsafe ? "its run ends where the net is not safe" : "its run shows nothing unsafe";
}

std::string Judge::complaint(const Job& job, const JobAnswer& answer) {
  if (!answer.isSure()) return "";
  return answer.kind == JobAnswer::unreachable ? certificateComplaint(job, answer.certificate)
                                               : runComplaint(job, answer);
}

}  // namespace tpn
