#include "workbench/nets/anyreader.hpp"

#include <algorithm>
#include <cassert>
#include <filesystem>

#include "workbench/nets/bridge.hpp"
#include "workbench/nets/pnmlreader.hpp"
#include "workbench/nets/tinareader.hpp"
#include "workbench/nets/translate.hpp"
#include "workbench/network/strictread.hpp"

namespace tpn {

namespace {

// The first lines that are neither empty nor comments.
std::vector<std::string_view> firstLines(std::string_view text, std::size_t count) {
  std::vector<std::string_view> lines;
  while (!text.empty() && lines.size() < count) {
    const std::string_view line = text.substr(0, text.find('\n'));
    text.remove_prefix(std::min(text.size(), line.size() + 1));
    if (line.find_first_not_of(" \t\r") != std::string_view::npos && !line.starts_with('#'))
      lines.push_back(line);
  }
  return lines;
}

bool looksLikeXml(std::string_view text) {
  constexpr std::string_view mark = "\xEF\xBB\xBF";
  if (text.starts_with(mark)) text.remove_prefix(mark.size());
  const std::size_t first = text.find_first_not_of(" \t\r\n");
  return first != std::string_view::npos && text[first] == '<';
}

// A network file has a title, which may be anything, and a keyword below it.
bool looksLikeTina(std::string_view text) {
  const auto lines = firstLines(text, 2);
  if (lines.empty() || (lines.size() == 2 && lines[1].starts_with("transitions"))) return false;
  const std::vector<Word> all = words({lines[0], 1, true});
  for (const std::string_view keyword : {"net", "tr", "pl", "lb", "pr"})
    if (all.front().text == keyword) return true;
  return false;
}

}  // namespace

std::optional<NetForm> formNamed(const std::string& name) {
  const std::string suffix = std::filesystem::path(name).extension();
  if (suffix == ".tpn") return NetForm::network;
  if (suffix == ".net") return NetForm::tina;
  if (suffix == ".pnml" || suffix == ".xml") return NetForm::pnml;
  return std::nullopt;
}

NetForm formOf(const std::string& name, std::string_view text) {
  if (const auto form = formNamed(name)) return *form;
  if (looksLikeXml(text)) return NetForm::pnml;
  return looksLikeTina(text) ? NetForm::tina : NetForm::network;
}

std::optional<PetriNet> readPetriNet(NetForm form, const std::string& file, std::string_view text,
                                     Diagnostics& diagnostics, const Checkpoint& checkpoint) {
  assert(form != NetForm::network);
  return form == NetForm::tina ? readTina(file, text, diagnostics, checkpoint)
                               : readPnml(file, text, diagnostics, checkpoint);
}

std::optional<Network> networkIn(const PetriNet& net, const std::string& file,
                                 Diagnostics& diagnostics, const Checkpoint& checkpoint) {
  if (!net.origin) return translated(net, checkpoint).net;
  NetReport report(file, diagnostics);
  return originalNetwork(net, report, checkpoint);
}

std::optional<Network> readAnyNetwork(const std::string& file, const std::string& text,
                                      Diagnostics& diagnostics, const Checkpoint& checkpoint) {
  const NetForm form = formOf(file, text);
  if (form == NetForm::network) return readNetwork(file, text, diagnostics, checkpoint);
  const auto net = readPetriNet(form, file, text, diagnostics, checkpoint);
  return net ? networkIn(*net, file, diagnostics, checkpoint) : std::nullopt;
}

}  // namespace tpn
