#include "workbench/command/viewchoice.hpp"

#include <exception>

namespace tpn {

bool print(const RunViews& views, const Inputs& inputs, const std::optional<Run>& run,
           const std::string& text) {
  bool whole = true;
  std::exception_ptr failure;  // such as memory that runs out
  try {
    if (run)
      whole = views.writeFiles(
          [&](const RunView& view) { return view.print(inputs.net, inputs.property, *run); });
  } catch (...) {
    failure = std::current_exception();
  }
  writeFile("-", text);
  if (failure) std::rethrow_exception(failure);
  return whole;
}

}  // namespace tpn
