#include "workbench/network/called.hpp"

#include "workbench/base/printable.hpp"

namespace tpn {

Called::Called(const std::vector<NameLine>& names) {
  for (const NameLine& line : names)
    names_.emplace(Part{line.kind, line.number, line.inner}, line.name);
}

std::string Called::process(int process) const {
  return called("process ", {NameLine::process, process, 0}, process);
}

std::string Called::location(int process, int location) const {
  return called("location ", {NameLine::location, process, location}, location);
}

std::string Called::transition(int transition) const {
  return called("transition ", {NameLine::transition, transition, 0}, transition);
}

std::string Called::proposition(int proposition) const {
  return called("proposition ", {NameLine::proposition, proposition, 0}, proposition);
}

std::string Called::called(const char* kind, const Part& part, int shown) const {
  const auto named = names_.find(part);
  return kind + std::to_string(shown) +
         (named == names_.end() ? "" : " " + printable(writtenName(named->second)));
}

}  // namespace tpn
