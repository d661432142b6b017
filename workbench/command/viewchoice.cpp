#include "workbench/command/viewchoice.hpp"

#include <exception>

namespace tpn {

void print(const RunViews& views, const Inputs& inputs, const std::optional<Run>& run,
           const std::string& text) {
  std::exception_ptr failure;
  try {
    if (run)
      views.writeFiles(
          [&](const RunView& view) { return view.print(inputs.net, inputs.property, *run); });
  } catch (...) {
    failure = std::current_exception();
  }
  writeFile("-", text);
  if (failure) std::rethrow_exception(failure);
}

}  // namespace tpn
