#include "workbench/command/reading.hpp"

#include <iostream>

#include "workbench/base/files.hpp"
#include "workbench/base/textlines.hpp"
#include "workbench/command/findings.hpp"
#include "workbench/nets/anyreader.hpp"
#include "workbench/network/propertyreader.hpp"
#include "workbench/network/questionreader.hpp"

namespace tpn {

namespace {

void complain(const Diagnostics& diagnostics) { std::cerr << findingsText(diagnostics); }

Asked asked(Network net, Property property) {
  const bool maybe = mayBeUnsafe(net);
  return {std::move(net), maybe ? orUnsafe(std::move(property)) : std::move(property)};
}

}  // namespace

void addNet(CLI::App& app, Files& files) {
  app.add_option("NET", files.net, "network or net: .tpn, .net, .pnml")
      ->type_name("FILE")
      ->required();
}

void addPhi(CLI::App& app, Files& files) {
  app.add_option("PHI", files.phi, "property file, with or without .tpn")->type_name("FILE");
  app.add_option("-p,--property", files.property, "the property itself, in place of PHI")
      ->type_name("TEXT");
}

bool asksOnce(const Files& files, bool deadlock) {
  const int ways = (files.phi.empty() ? 0 : 1) + (files.property ? 1 : 0) + (deadlock ? 1 : 0);
  return ways == 1;
}

std::optional<Network> networkOf(const Files& files, Diagnostics& diagnostics,
                                 const Checkpoint& checkpoint) {
  return readAnyNetwork(inputName(files.net), readInput(files.net), diagnostics, checkpoint);
}

std::optional<Property> propertyOf(const Files& files, const Network* net,
                                   Diagnostics& diagnostics) {
  if (files.property) {
    auto given = readGivenQuestion(*files.property, net, diagnostics);
    if (given) lintTogether(*net, commandLine, *given, diagnostics);
    return given;
  }
  const std::string name = inputName(files.phi);
  auto read = readQuestion(name, readInput(files.phi), net, diagnostics);
  if (read && net != nullptr) lintTogether(*net, name, *read, diagnostics);
  return read;
}

std::string questionText(const Files& files) {
  if (!files.asks()) return deadlockProperty().text;
  if (files.property) return *files.property;
  const std::string text = readInput(files.phi);
  for (const Line& line : nonEmptyLines(text))
    if (!words(line).empty()) return std::string(line.text);
  return "";
}

FilePlan planFor(const Files& files) {
  FilePlan plan;
  plan.reads(inputName(files.net));
  if (!files.phi.empty()) plan.reads(inputName(files.phi));
  return plan;
}

std::optional<Network> networkOf(const Files& files, const Checkpoint& checkpoint) {
  Diagnostics diagnostics;
  std::optional<Network> net = networkOf(files, diagnostics, checkpoint);
  complain(diagnostics);
  return net;
}

std::optional<Inputs> inputsOf(const Files& files, const Checkpoint& checkpoint) {
  Diagnostics diagnostics;
  std::optional<Network> net = networkOf(files, diagnostics, checkpoint);
  checkpoint();
  std::optional<Property> phi = propertyOf(files, net ? &*net : nullptr, diagnostics);
  complain(diagnostics);
  if (hasErrors(diagnostics) || !net || !phi) return std::nullopt;
  return Inputs{std::move(*net), std::move(*phi)};
}

std::optional<Asked> askedOf(const Files& files, const Checkpoint& checkpoint) {
  if (files.asks()) {
    std::optional<Inputs> inputs = inputsOf(files, checkpoint);
    if (!inputs) return std::nullopt;
    return asked(std::move(inputs->net), std::move(inputs->property));
  }
  std::optional<Network> net = networkOf(files, checkpoint);
  if (!net) return std::nullopt;
  return asked(std::move(*net), deadlockProperty());
}

}  // namespace tpn
