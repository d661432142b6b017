// What subcommands read: the network and the property that the command line names.

#pragma once

#include <CLI/CLI.hpp>
#include <optional>
#include <string>

#include "workbench/base/checkpoint.hpp"
#include "workbench/base/fileplan.hpp"
#include "workbench/network/diagnostic.hpp"
#include "workbench/network/goal.hpp"
#include "workbench/network/network.hpp"
#include "workbench/network/property.hpp"

namespace tpn {

// As the command line gives them, with or without .tpn.
struct Files {
  std::string net;
  std::string phi;                      // empty: none is named
  std::optional<std::string> property;  // itself, in place of a file

  bool asks() const { return property || !phi.empty(); }
};

struct Inputs {
  Network net;
  Property property;
};

// The goal of a net that may be unsafe is the property, or that it is.
struct Asked {
  Network net;
  Goal goal;
};

void addNet(CLI::App& app, Files& files);
void addPhi(CLI::App& app, Files& files);  // and -p; neither is required

// Is there just one question: a file, -p or --deadlock?
bool asksOnce(const Files& files, bool deadlock);

// A file's value, its mistakes appended; nothing where they leave none. The property may be read
// only where there is one; `net` is null where it could not be read.
std::optional<Network> networkOf(const Files& files, Diagnostics& diagnostics,
                                 const Checkpoint& checkpoint = {});
std::optional<Property> propertyOf(const Files& files, const Network* net,
                                   Diagnostics& diagnostics);

// The question as it is written, before it is understood; that of a deadlock where there is none.
std::string questionText(const Files& files);

// What they are read from, for the outputs to be compared with.
FilePlan planFor(const Files& files);

// With the mistakes on standard error; nothing where they are errors.
std::optional<Network> networkOf(const Files& files, const Checkpoint& checkpoint = {});
std::optional<Inputs> inputsOf(const Files& files, const Checkpoint& checkpoint = {});
std::optional<Asked> askedOf(const Files& files,  // no property named: a deadlock
                             const Checkpoint& checkpoint = {});

}  // namespace tpn
