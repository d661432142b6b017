// The options that a table of views gives to a subcommand, and what was chosen by them: one view
// for standard output, and any number with files of their own.

#pragma once

#include <CLI/CLI.hpp>
#include <algorithm>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "workbench/base/fileplan.hpp"
#include "workbench/base/files.hpp"
#include "workbench/command/complain.hpp"
#include "workbench/command/reading.hpp"
#include "workbench/command/terminallook.hpp"
#include "workbench/runs/run.hpp"
#include "workbench/search/answer.hpp"
#include "workbench/views/views.hpp"

namespace tpn {

// `View` is a row of the table: RunView, NetworkView.
template <class View>
class ViewChoice {
 public:
  explicit ViewChoice(std::span<const View> table) {
    for (const View& view : table) rows_.push_back({&view, false, ""});
  }
  ViewChoice(const ViewChoice&) = delete;  // the options know where the rows are
  ViewChoice& operator=(const ViewChoice&) = delete;

  // --NAME for what standard output may get instead of the usual view, at most one of these;
  // --NAME FILE for what has a file of its own.
  void declare(CLI::App& app) {
    std::vector<CLI::Option*> flags;
    for (Row& row : rows_) {
      const std::string option = std::string("--") + row.view->name;
      if (row.view->destination == Destination::file)
        app.add_option(option, row.file, row.view->help)->type_name("FILE");
      if (row.view->destination != Destination::stream) continue;
      flags.push_back(app.add_flag(option, row.chosen, row.view->help));
      for (CLI::Option* other : flags)
        if (other != flags.back()) flags.back()->excludes(other);
    }
    app.add_flag("--all", all_,
                 std::is_same_v<View, RunView> ? "show also what does not move"
                                               : "draw also processes that are alike one by one");
  }

  // The view for standard output.
  const View& shown() const {
    const auto chosen =
        std::find_if(rows_.begin(), rows_.end(), [](const Row& row) { return row.chosen; });
    return chosen != rows_.end() ? *chosen->view : usual();
  }
  bool showsUsual() const { return &shown() == &usual(); }
  bool shows(std::string_view name) const { return shown().name == name; }

  // How views are shown in files, and on standard output.
  Look look() const { return {.all = all_}; }
  Look terminalLook() const { return lookOnTerminal(all_); }

  // Into files that are going to be written.
  bool anyFile() const {
    return std::any_of(rows_.begin(), rows_.end(),
                       [](const Row& row) { return !row.file.empty(); });
  }
  void addTo(FilePlan& plan) const {
    for (const Row& row : rows_)
      if (!row.file.empty()) plan.writes(row.file);
  }

  // Writes them; `print` makes the text of a view, or none where there is nothing to see. What
  // cannot be written is told, each in one line; false where there was something.
  using Print = std::function<std::optional<std::string>(const View&)>;
  bool writeFiles(const Print& print) const {
    bool whole = true;
    for (const Row& row : rows_)
      if (!row.file.empty())
        whole = attempted([&] {
                  if (const auto text = print(*row.view)) writeFile(row.file, *text);
                }) &&
                whole;
    return whole;
  }

 private:
  struct Row {
    const View* view;
    bool chosen;
    std::string file;  // empty: not asked for
  };

  const View& usual() const {
    const auto at = std::find_if(rows_.begin(), rows_.end(), [](const Row& row) {
      return row.view->destination == Destination::usual;
    });
    return *at->view;
  }

  std::vector<Row> rows_;
  bool all_ = false;
};

using RunViews = ViewChoice<RunView>;
using NetworkViews = ViewChoice<NetworkView>;

// The files with views of the run, then `text`: whoever reads only the first lines of it still gets
// the pictures. What cannot be written is told, each file in one line, and costs neither the text
// nor the other files; false where there was something.
bool print(const RunViews& views, const Inputs& inputs, const Run& run, const std::string& text);

// The same of an answer: those views that show answers, and the others if it has a run.
bool print(const RunViews& views, const Inputs& inputs, const Answer& answer,
           const std::string& text);

}  // namespace tpn
