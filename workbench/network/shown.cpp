#include "workbench/network/shown.hpp"

#include <map>

#include "workbench/base/printable.hpp"

namespace tpn {

namespace {

template <class Key>
std::string shown(const std::map<Key, std::string>& names, const Key& key, std::string number) {
  const auto named = names.find(key);
  return named == names.end() ? number : printable(writtenName(named->second));
}

}  // namespace

std::string shownProcess(const Network& net, std::size_t process) {
  return shown(net.names.processes, process, std::to_string(number(process)));
}

std::string shownLocation(const Network& net, std::size_t process, int location) {
  return shown(net.names.locations, {process, location}, std::to_string(location));
}

std::string shownSpot(const Network& net, std::size_t process, int location) {
  return shownProcess(net, process) + "." + shownLocation(net, process, location);
}

std::string shownTransition(const Network& net, std::size_t transition) {
  return shown(net.names.transitions, transition, std::to_string(number(transition)));
}

std::string shownProposition(const Network& net, int proposition) {
  return shown(net.names.propositions, proposition, "p" + std::to_string(proposition));
}

std::string andName(const std::string& number, const std::string& shown) {
  return shown == number ? "" : " " + shown;
}

std::string initialName(const Network& net) {
  std::string common = net.processes.empty() ? "0" : shownLocation(net, 0, 0);
  for (std::size_t p = 1; p < net.processes.size(); ++p)
    if (shownLocation(net, p, 0) != common) return "";
  return common;
}

}  // namespace tpn
