#include "workbench/campaign/tables.hpp"

#include <algorithm>
#include <array>
#include <cstdio>
#include <nlohmann/json.hpp>

#include "workbench/base/json.hpp"
#include "workbench/base/printable.hpp"

namespace tpn {

namespace {

constexpr std::array<const char*, 7> states{"answered", "failed",  "missing",    "begun",
                                            "broken",   "refuted", "superfluous"};

std::string fixed(double value, const char* format) {
  std::array<char, 64> text{};
  std::snprintf(text.data(), text.size(), format, value);
  return text.data();
}

bool hasFigures(const Row& row) {
  return row.state == Row::complete || row.state == Row::gaveUp || row.state == Row::refuted;
}

// Rows of words under headings, numbers to the right.
class TextTable {
 public:
  explicit TextTable(std::vector<std::string> heads) { add(std::move(heads)); }

  void add(std::vector<std::string> cells) {
    widths_.resize(std::max(widths_.size(), cells.size()));
    for (std::size_t i = 0; i < cells.size(); ++i)
      widths_[i] = std::max(widths_[i], cells[i].size());
    rows_.push_back(std::move(cells));
  }

  std::string text() const {
    std::string text;
    for (const std::vector<std::string>& row : rows_) {
      std::string line;
      for (std::size_t i = 0; i < row.size(); ++i) {
        const std::string pad(widths_[i] - row[i].size() + (i + 1 < row.size() ? 2 : 0), ' ');
        line += isNumber(row[i]) ? pad.substr(0, widths_[i] - row[i].size()) + row[i] +
                                       (i + 1 < row.size() ? "  " : "")
                                 : row[i] + pad;
      }
      text += line.substr(0, line.find_last_not_of(' ') + 1) + "\n";
    }
    return text;
  }

 private:
  static bool isNumber(const std::string& cell) {
    return !cell.empty() && cell.find_first_not_of("0123456789.") == std::string::npos;
  }

  std::vector<std::vector<std::string>> rows_;
  std::vector<std::size_t> widths_;
};

std::string lengthOf(const Row& row) {
  if (row.transitions >= 0) return std::to_string(row.transitions);
  if (row.state == Row::complete && row.answer == JobAnswer::undecided && row.noRunUpTo >= 0)
    return "> " + std::to_string(row.noRunUpTo);
  return "";
}

std::vector<std::string> cellsOf(const Row& row) {
  const Job& job = row.job;
  return {std::to_string(job.number),
          printable(job.name),
          std::to_string(job.size),
          printable(sweptText(job)),
          printable(job.asked),
          job.engine + (job.seed != 0 ? "/" + std::to_string(job.seed) : ""),
          answerWord(row),
          lengthOf(row),
          hasFigures(row) ? fixed(row.seconds, "%.2f") : "",
          hasFigures(row) ? fixed(static_cast<double>(row.memory) / 1024, "%.0f") : ""};
}

// Quoted where it has to be.
std::string csvCell(const std::string& text) {
  if (text.find_first_of(",\"\r\n") == std::string::npos) return text;
  std::string quoted = "\"";
  for (const char c : text) quoted += c == '"' ? std::string("\"\"") : std::string(1, c);
  return quoted + "\"";
}

std::string csvLine(const std::vector<std::string>& cells) {
  std::string line;
  for (const std::string& cell : cells) line += (line.empty() ? "" : ",") + csvCell(cell);
  return line + "\r\n";
}

Json jsonOf(const Row& row) {
  const Job& job = row.job;
  Json json{{"job", job.number},  {"network", job.name},  {"size", job.size},
            {"asked", job.asked}, {"engine", job.engine}, {"seed", job.seed}};
  for (const Swept& swept : job.swept)
    json["swept"].push_back({{"what", swept.what()}, {"value", swept.value}});
  json["state"] = nameOf(row.state);
  if (row.state == Row::complete) json["answer"] = nameOf(row.answer);
  if (row.transitions >= 0) {
    json["transitions"] = row.transitions;
    json["shortest"] = row.shortest;
  }
  if (row.noRunUpTo >= 0) json["noRunUpTo"] = row.noRunUpTo;
  if (hasFigures(row)) {
    json["seconds"] = row.seconds;
    json["cpu"] = row.cpu;
    json["memory"] = row.memory;
  }
  if (!row.why.empty()) json["why"] = row.why;
  return json;
}

Json jsonOf(const Turn& turn) {
  return {{"network", turn.network}, {"asked", turn.asked}, {"what", turn.what},
          {"where", turn.where},     {"from", turn.from},   {"to", turn.to},
          {"before", turn.before},   {"after", turn.after}};
}

Json jsonOf(const Whole& whole) {
  Json json{{"answer", nameOf(whole.answer)}};
  if (whole.noRunUpTo >= 0) json["noRunUpTo"] = whole.noRunUpTo;
  if (whole.job > 0) json["job"] = whole.job;
  if (!whole.reason.empty()) json["reason"] = whole.reason;
  return json;
}

// Every job that is not answered, and why; those that were never begun in one line.
std::string gaps(const Collection& c) {
  std::string text;
  std::size_t missing = 0;
  for (const Row& row : c.rows) {
    if (row.state == Row::missing) ++missing;
    if (row.state == Row::missing || row.state == Row::complete || row.state == Row::superfluous)
      continue;
    text += "job " + std::to_string(row.job.number) + " " + nameOf(row.state) + ": " +
            printable(row.why) + "\n";
  }
  if (missing > 0)
    text += std::to_string(missing) + (missing == 1 ? " job is" : " jobs are") + " not begun\n";
  return text;
}

}  // namespace

const char* nameOf(Row::State state) { return states.at(state); }

std::string answerWord(const Row& row) {
  return row.state == Row::complete ? nameOf(row.answer) : nameOf(row.state);
}

std::string text(const Turn& turn) {
  return printable(turn.network + ", " + turn.asked +
                   (turn.where.empty() ? "" : ", " + turn.where) + ": " + turn.what) +
         " turns between " + std::to_string(turn.from) + " (" + turn.before + ") and " +
         std::to_string(turn.to) + " (" + turn.after + ")";
}

std::string text(const Whole& whole) {
  if (whole.answer != JobAnswer::undecided)
    return std::string(nameOf(whole.answer)) + ": job " + std::to_string(whole.job) +
           (whole.reason.empty() ? "" : ", " + printable(whole.reason)) + "\n";
  std::string text = "undecided";
  if (!whole.reason.empty()) text += ": " + printable(whole.reason);
  if (whole.noRunUpTo >= 0)
    text += (whole.reason.empty() ? ": " : "; ") + std::string("no run of up to ") +
            std::to_string(whole.noRunUpTo) + " transitions does it";
  return text + "\n";
}

std::string summary(const Collection& c) {
  std::string text = std::to_string(c.rows.size()) + (c.rows.size() == 1 ? " job" : " jobs");
  for (std::size_t i = 0; i < states.size(); ++i) {
    const std::size_t count = c.count(static_cast<Row::State>(i));
    if (count > 0) text += ", " + std::to_string(count) + " " + states.at(i);
  }
  text += "\n" + gaps(c);
  for (const std::string& line : c.contradictions)
    text += "contradiction: " + printable(line) + "\n";
  for (const Turn& turn : c.turns) text += tpn::text(turn) + "\n";
  return c.whole ? text + tpn::text(*c.whole) : text;
}

std::string collectionText(const Collection& c) {
  TextTable table({"job", "network", "size", "swept", "asked", "engine", "answer", "transitions",
                   "seconds", "MB"});
  for (const Row& row : c.rows) table.add(cellsOf(row));
  return table.text() + "\n" + summary(c);
}

std::string collectionCsv(const Collection& c) {
  std::string text =
      csvLine({"job", "network", "size", "swept", "asked", "engine", "seed", "state", "answer",
               "transitions", "shortest", "no_run_up_to", "seconds", "cpu", "memory_kib", "why"});
  const auto known = [](int value) { return value < 0 ? "" : std::to_string(value); };
  for (const Row& row : c.rows) {
    const Job& job = row.job;
    const bool figures = hasFigures(row);
    text +=
        csvLine({std::to_string(job.number), job.name, std::to_string(job.size), sweptText(job),
                 job.asked, job.engine, std::to_string(job.seed), nameOf(row.state),
                 row.state == Row::complete ? nameOf(row.answer) : "", known(row.transitions),
                 row.shortest ? "true" : "", known(row.noRunUpTo),
                 figures ? fixed(row.seconds, "%.6f") : "", figures ? fixed(row.cpu, "%.6f") : "",
                 figures ? std::to_string(row.memory) : "", row.why});
  }
  return text;
}

std::string collectionJson(const Collection& c) {
  Json json{{"format", "tpn-collection"}, {"version", 1}, {"title", c.plan.title}};
  Json counts = Json::object();
  for (std::size_t i = 0; i < states.size(); ++i)
    counts[states.at(i)] = c.count(static_cast<Row::State>(i));
  json["counts"] = counts;
  json["contradictions"] = c.contradictions;
  json["turns"] = Json::array();
  for (const Turn& turn : c.turns) json["turns"].push_back(jsonOf(turn));
  if (c.whole) json["whole"] = jsonOf(*c.whole);
  json["jobs"] = Json::array();
  for (const Row& row : c.rows) json["jobs"].push_back(jsonOf(row));
  return jsonText(json);
}

}  // namespace tpn
