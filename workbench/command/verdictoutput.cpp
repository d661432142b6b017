#include "workbench/command/verdictoutput.hpp"

#include <nlohmann/json.hpp>
#include <stdexcept>

#include "workbench/base/files.hpp"
#include "workbench/base/json.hpp"
#include "workbench/proof/certificatetext.hpp"
#include "workbench/views/goalline.hpp"
#include "workbench/views/views.hpp"

namespace tpn {

namespace {

const char* outcome(Answer::Kind kind) {
  if (kind == Answer::unreachable) return "is never reached";
  return kind == Answer::unsafe ? "stays unanswered" : "";
}

}  // namespace

Goal shownGoal(const Goal& question, const Answer& a) {
  if (a.kind != Answer::unsafe) return question;
  Goal unsafe{"unsafe", {}, 1};
  unsafe.items.emplace_back().kind = PropertyItem::unsafe;
  return unsafe;
}

std::string answerText(const Inputs& q, const Answer& a, const Look& look) {
  std::string text = headline(a);
  if (a.kind != Answer::reachable) text += goalLine(q.property, outcome(a.kind), look);
  return text;
}

std::string answerJson(const Inputs& q, const Answer& a) {
  Json json{{"format", "tpn-check"},
            {"version", 2},
            {"answer", kindName(a.kind)},
            {"property", q.property.text}};
  if (a.run) {
    json["transitions"] = a.run->steps.size();
    json["k"] = boundOf(a.run->steps.size());
    json["shortest"] = a.shortest;
  }
  if (a.kind != Answer::unreachable && a.noRunUpTo >= 0) {
    json["noRunUpTo"] = a.noRunUpTo;
    json["noRunUpToK"] = boundOf(static_cast<std::size_t>(a.noRunUpTo));
  }
  for (const auto& [bound, reason] : a.unanswered)
    json["unanswered"].push_back({{"bound", bound}, {"reason", reason}});
  if (!a.reason.empty()) json["reason"] = a.reason;
  if (a.run) json["run"] = runJson(q.net, shownGoal(q.property, a), *a.run);
  return jsonText(json);
}

Exit exitOf(const Answer& a) {
  if (a.kind == Answer::reachable) return yes;
  return a.kind == Answer::unreachable ? no : neither;
}

void writeCertificate(const std::string& file, const Asked& asked, const Certificate& proof,
                      bool flat, const Watch& watch) {
  try {
    const Checkpoint checkpoint([&] { return watch.over(); });
    const Certificate written = flat ? flattened(proof, checkpoint) : proof;
    writeFile(file, certificateText({statement(asked.net, asked.goal), written}, &asked.net));
  } catch (const Interrupted&) {
    throw std::runtime_error(file + " is not written: " + watch.reason());
  }
}

}  // namespace tpn
