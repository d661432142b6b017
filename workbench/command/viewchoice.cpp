#include "workbench/command/viewchoice.hpp"

#include <exception>

namespace tpn {

namespace {

bool printWith(const RunViews& views, const RunViews::Print& view, const std::string& text) {
  bool whole = true;
  std::exception_ptr failure;  // such as memory that runs out
  try {
    whole = views.writeFiles(view);
  } catch (...) {
    failure = std::current_exception();
  }
  writeFile("-", text);
  if (failure) std::rethrow_exception(failure);
  return whole;
}

}  // namespace

bool print(const RunViews& views, const Inputs& inputs, const Run& run, const std::string& text) {
  return printWith(
      views,
      [&](const RunView& view) {
        return view.print(inputs.net, inputs.property, run, views.look());
      },
      text);
}

bool print(const RunViews& views, const Inputs& inputs, const Answer& answer,
           const std::string& text) {
  const auto view = [&](const RunView& row) -> std::optional<std::string> {
    if (row.answered != nullptr)
      return row.answered(inputs.net, inputs.property, answer, views.look());
    if (!answer.run) return std::nullopt;
    return row.print(inputs.net, inputs.property, *answer.run, views.look());
  };
  return printWith(views, view, text);
}

}  // namespace tpn
