#include "workbench/views/views.hpp"

#include <algorithm>
#include <nlohmann/json.hpp>

namespace tpn {

namespace {

constexpr RunView ofRuns[] = {
    {"text", "txt", Destination::usual, "the run as a table", runText, nullptr},
    {"json", "json", Destination::stream, "print JSON instead of text",
     [](const Network& net, const Property& property, const Run& run, const Look& /*look*/) {
       return jsonText(runJson(net, property, run));
     },
     nullptr},
    {"vcd", "vcd", Destination::file, "the run for a waveform viewer",
     [](const Network& net, const Property& property, const Run& run, const Look& /*look*/) {
       return runVcd(net, property, run);
     },
     nullptr},
    {"svg", "svg", Destination::file, "draw the run: time to the right, a lane a process", runSvg,
     nullptr},
    {"html", "html", Destination::file, "a page to look at it in a browser, step by step", runHtml,
     answerHtml}};

constexpr NetworkView ofNetworks[] = {
    {"text", "txt", Destination::usual, "the network as a list", networkText},
    {"dot", "dot", Destination::stream, "print it for Graphviz", networkDot},
    {"svg", "svg", Destination::file, "draw it, with Graphviz", networkSvg},
    {"json", "json", Destination::stream, "print JSON instead of text",
     [](const Network& net, const Look& /*look*/) { return jsonText(networkJson(net)); }}};

}  // namespace

std::span<const RunView> runViews() { return ofRuns; }
std::span<const NetworkView> networkViews() { return ofNetworks; }

const RunView* runViewCalled(std::string_view name) {
  const auto* row = std::find_if(std::begin(ofRuns), std::end(ofRuns),
                                 [&](const RunView& view) { return view.name == name; });
  return row == std::end(ofRuns) ? nullptr : row;
}

}  // namespace tpn
