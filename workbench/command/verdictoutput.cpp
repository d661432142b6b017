#include "workbench/command/verdictoutput.hpp"

#include <nlohmann/json.hpp>

#include "workbench/base/json.hpp"
#include "workbench/views/views.hpp"

namespace tpn {

namespace {

using Json = nlohmann::ordered_json;

const char* nameOf(Verdict::Answer answer) {
  switch (answer) {
    case Verdict::reachable:
      return "reachable";
    case Verdict::unreached:
      return "unreached";
    case Verdict::unreachable:
      return "unreachable";
    case Verdict::unknown:
      break;
  }
  return "unknown";
}

}  // namespace

std::string verdictJson(const Inputs& q, const Verdict& v) {
  Json json{{"answer", nameOf(v.answer)}, {"bound", v.bound}};
  if (v.answer == Verdict::reachable) json["shortest"] = v.shortest;
  for (const auto& [bound, reason] : v.unanswered)
    json["unanswered"].push_back({{"bound", bound}, {"reason", reason}});
  if (!v.reason.empty()) json["reason"] = v.reason;
  if (v.run) json["run"] = runJson(q.net, q.property, *v.run);
  return jsonText(json);
}

Exit exitOf(const Verdict& v) {
  if (v.answer == Verdict::reachable) return yes;
  return v.answer == Verdict::unknown ? done : no;
}

}  // namespace tpn
