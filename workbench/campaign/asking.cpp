#include "workbench/campaign/asking.hpp"

#include <algorithm>
#include <charconv>
#include <stdexcept>

#include "workbench/campaign/planfolder.hpp"
#include "workbench/nets/anyreader.hpp"
#include "workbench/network/propertyreader.hpp"
#include "workbench/network/questionreader.hpp"

namespace tpn {

namespace {

[[noreturn]] void failWith(const std::string& name, const Diagnostics& diagnostics) {
  const auto isError = [](const Diagnostic& d) { return d.severity == Severity::error; };
  const auto error = std::find_if(diagnostics.begin(), diagnostics.end(), isError);
  if (error == diagnostics.end()) throw std::runtime_error(name + ": cannot be read");
  Diagnostic line = *error;
  line.source.clear();
  throw std::runtime_error(text(line));
}

// By its name, or else by its number.
std::size_t transitionOf(const Network& net, const std::string& called) {
  for (const auto& [index, name] : net.names.transitions)
    if (name == called) return index;
  std::size_t found = 0;
  const char* const end = called.data() + called.size();
  const auto [stop, failure] = std::from_chars(called.data(), end, found);
  if (failure != std::errc() || stop != end || found < 1 || found > net.transitions.size())
    throw std::runtime_error("there is no transition " + called + " in " + net.title);
  return found - 1;
}

}  // namespace

Network networkIn(const std::string& name, const std::string& text) {
  Diagnostics diagnostics;
  auto net = readAnyNetwork(name, text, diagnostics);
  if (!net) failWith(name, diagnostics);
  return std::move(*net);
}

Network changed(Network net, const std::vector<Swept>& swept) {
  for (const Swept& one : swept) {
    if (one.value > mostConstant)
      throw std::runtime_error("a time of " + std::to_string(one.value) + " is too long");
    Interval& interval = net.transitions[transitionOf(net, one.transition)].interval;
    if (one.latest)
      interval.latest = one.value;
    else
      interval.earliest = one.value;
  }
  return net;
}

Goal goalIn(const std::string& name, const std::string& text, const Network& net,
            Diagnostics& warnings) {
  Diagnostics diagnostics;
  auto question = readQuestion(name, text, &net, diagnostics);
  if (!question) failWith(name, diagnostics);
  lintTogether(net, name, *question, diagnostics);
  warnings.insert(warnings.end(), diagnostics.begin(), diagnostics.end());
  return mayBeUnsafe(net) ? orUnsafe(std::move(*question)) : std::move(*question);
}

Network networkOf(const std::string& folder, const Job& job) {
  return changed(networkIn(job.network, readInput(folder, job.network)), job.swept);
}

Goal goalOf(const std::string& folder, const Job& job, const Network& net) {
  Diagnostics known;
  return goalIn(job.question, readInput(folder, job.question), net, known);
}

}  // namespace tpn
