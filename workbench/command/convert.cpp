// tpn convert: a network in another form, or a property in the one that zervan reads.

#include <algorithm>
#include <iostream>
#include <memory>
#include <stdexcept>

#include "workbench/base/files.hpp"
#include "workbench/base/printable.hpp"
#include "workbench/command/findings.hpp"
#include "workbench/command/reading.hpp"
#include "workbench/command/subcommand.hpp"
#include "workbench/nets/anyreader.hpp"
#include "workbench/nets/bridge.hpp"
#include "workbench/nets/pnmlwriter.hpp"
#include "workbench/nets/tinawriter.hpp"
#include "workbench/nets/translate.hpp"
#include "workbench/network/plain.hpp"
#include "workbench/network/strictread.hpp"
#include "workbench/network/writer.hpp"

namespace tpn {

namespace {

struct ConvertArguments {
  std::string from;
  std::vector<std::string> more;  // TO, or PHI and TO
};

std::string inForm(NetForm form, const PetriNet& net) {
  return form == NetForm::tina ? tinaFile(net) : pnmlFile(net);
}

// Names of propositions that hold nowhere are of no use, and network files have none.
std::string fileOf(Network net) {
  const std::set<int> known = propositions(net);
  std::erase_if(net.names.propositions,
                [&](const auto& entry) { return !known.contains(entry.first); });
  return networkFile(net);
}

// Of a net that was no network; throws where it cannot become one that a file can say.
std::string translatedFile(const PetriNet& net) {
  const Translation translation = translated(net);
  requirePlain(net, translation);
  std::cerr << printableLines(told(net, translation));
  return fileOf(translation.net);
}

// A net's text in another form; nothing where there are mistakes.
std::optional<std::string> fromNet(const PetriNet& net, const std::string& file, NetForm to,
                                   Diagnostics& diagnostics) {
  if (to != NetForm::network && !net.origin) return inForm(to, net);
  if (!net.origin) return translatedFile(net);
  const auto network = networkIn(net, file, diagnostics);
  if (!network) return std::nullopt;
  return to == NetForm::network ? fileOf(*network) : inForm(to, net);
}

std::optional<std::string> converted(const std::string& file, const std::string& text, NetForm to,
                                     Diagnostics& diagnostics) {
  const NetForm from = formOf(file, text);
  if (from != NetForm::network) {
    const auto net = readPetriNet(from, file, text, diagnostics);
    return net ? fromNet(*net, file, to, diagnostics) : std::nullopt;
  }
  const auto net = readNetwork(file, text, diagnostics);
  if (!net) return std::nullopt;
  return to == NetForm::network ? fileOf(*net) : inForm(to, petriNetOf(*net));
}

int convertNet(const ConvertArguments& a) {
  const std::string file = inputName(a.from);
  const std::string& to = a.more.front();
  const auto form = formNamed(to);
  if (!form) {
    std::cerr << "tpn: " << printable(to) << " does not end in .tpn, .net or .pnml\n";
    return misused;
  }
  FilePlan plan;
  plan.reads(file);
  plan.writes(to);
  Diagnostics diagnostics;
  std::optional<std::string> text;
  try {
    text = converted(file, readInput(a.from), *form, diagnostics);
  } catch (const Inexact& e) {
    throw std::runtime_error(file + ": " + e.what());
  }
  std::cerr << findingsText(diagnostics);
  if (!text) return failed;
  writeFile(to, *text);
  return done;
}

int convertProperty(const ConvertArguments& a) {
  const Files files{a.from, a.more.front(), {}};
  FilePlan plan = planFor(files);
  plan.writes(a.more.back());
  const std::optional<Inputs> inputs = inputsOf(files);
  if (!inputs) return failed;
  writeFile(a.more.back(), postfixText(plain(inputs->net, inputs->property)) + "\n");
  return done;
}

int convert(const ConvertArguments& a) {
  return a.more.size() == 1 ? convertNet(a) : convertProperty(a);
}

Action declareConvert(CLI::App& app) {
  const auto a = std::make_shared<ConvertArguments>();
  app.add_option("FROM", a->from, "a network in any form: .tpn, .net or .pnml")->required();
  app.add_option("TO", a->more,
                 "where to, in the form of its suffix; or a property PHI of the network and where "
                 "to write it in postfix")
      ->required()
      ->expected(1, 2)
      ->type_name("[PHI] TO");
  return [a] { return convert(*a); };
}

}  // namespace

const Subcommand convertCommand{"convert", "a network in another form, a property in postfix",
                                declareConvert};

}  // namespace tpn
