// Is an answer true? The network and the question of the last one are kept, as neighbours in a plan
// mostly share them.

#pragma once

#include <optional>
#include <string>
#include <utility>

#include "workbench/campaign/answerfile.hpp"
#include "workbench/network/goal.hpp"
#include "workbench/network/network.hpp"

namespace tpn {

class Judge {
 public:
  explicit Judge(std::string folder) : folder_(std::move(folder)) {}

  // What is wrong with the run or the certificate, in one line; empty where the answer holds. An
  // answer that is not sure has nothing to be judged by.
  std::string complaint(const Job& job, const JobAnswer& answer);

  const Network& network(const Job& job);
  const Goal& goal(const Job& job);

 private:
  std::string certificateComplaint(const Job& job, const std::string& certificate);
  std::string runComplaint(const Job& job, const JobAnswer& answer);

  std::string folder_;
  Job about_;  // the last one: net_ is its network, and goal_, where there is one, its question
  std::optional<Network> net_;
  std::optional<Goal> goal_;
  std::string confirmed_;  // the last certificate that proved the goal of now; engines often agree
};

}  // namespace tpn
