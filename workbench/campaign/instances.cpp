#include "workbench/campaign/instances.hpp"

#include <algorithm>
#include <filesystem>
#include <stdexcept>

#include "workbench/base/files.hpp"
#include "workbench/campaign/asking.hpp"
#include "workbench/families/families.hpp"
#include "workbench/nets/anyreader.hpp"
#include "workbench/network/writer.hpp"

namespace tpn {

namespace {

const Family& familyOf(const NetworkEntry& entry) {
  const Family* family = familyNamed(entry.family);
  if (family == nullptr)
    throw std::runtime_error("there is no family " + entry.family + "; tpn make lists them");
  return *family;
}

std::string suffixOf(NetForm form) {
  if (form == NetForm::tina) return ".net";
  return form == NetForm::pnml ? ".pnml" : ".tpn";
}

Instance ofFamily(const NetworkEntry& entry, std::int64_t size) {
  constexpr std::int64_t largest = 9999999;
  const Family& family = familyOf(entry);
  if (size < family.least || size > largest)
    throw std::runtime_error(entry.family + " has " + std::to_string(family.least) + " to " +
                             std::to_string(largest) + " " + family.counted);
  Network net = family.network(static_cast<int>(size));
  std::string bytes = networkFile(net);
  return {std::move(bytes), ".tpn", std::move(net), entry.family, size};
}

void changedFrom(std::vector<Swept>& swept, const std::vector<Sweep>& sweeps,
                 const std::function<void(const std::vector<Swept>&)>& take) {
  if (swept.size() == sweeps.size()) return take(swept);
  const Sweep& next = sweeps[swept.size()];
  for (const std::int64_t value : next.values) {
    swept.push_back({next.transition, next.latest, value});
    changedFrom(swept, sweeps, take);
    swept.pop_back();
  }
}

std::string oneLine(const std::string& text) {
  std::string line = text.substr(0, text.find_last_not_of(" \t\r\n") + 1);
  std::replace(line.begin(), line.end(), '\n', ' ');
  return line;
}

AskedText ofFamily(const NetworkEntry& entry, std::int64_t size, const std::string& name) {
  const FamilyQuestion* question = questionNamed(familyOf(entry).questions, name);
  if (question == nullptr)
    throw std::runtime_error("there is no question " + name + " of " + entry.family);
  const auto text = question->postfix != nullptr ? question->postfix : question->infix;
  return {name, name, text(static_cast<int>(size)) + "\n"};
}

}  // namespace

Instance instanceIn(const std::string& named) {
  const std::string file = inputName(named);
  std::string bytes = readFile(file, largestInput);
  Network net = networkIn(file, bytes);
  const auto size = static_cast<std::int64_t>(net.processes.size());
  std::string suffix = suffixOf(formOf(file, bytes));
  return {std::move(bytes), std::move(suffix), std::move(net), std::filesystem::path(file).stem(),
          size};
}

void forEachInstance(const NetworkEntry& entry, const std::function<void(const Instance&)>& take) {
  if (entry.family.empty()) return take(instanceIn(entry.file));
  for (const std::int64_t size : entry.sizes) take(ofFamily(entry, size));
}

void forEachChange(const std::vector<Sweep>& sweeps,
                   const std::function<void(const std::vector<Swept>&)>& take) {
  std::vector<Swept> swept;
  changedFrom(swept, sweeps, take);
}

std::vector<AskedText> questionsAbout(const NetworkEntry& entry, const Instance& instance) {
  std::vector<AskedText> asked;
  for (const std::string& property : entry.properties) {
    const std::string file = inputName(property);
    asked.push_back({std::filesystem::path(file).stem(), file, readFile(file, largestInput)});
  }
  for (const std::string& text : entry.questions)
    asked.push_back({oneLine(text), text, text + "\n"});
  for (const std::string& name : entry.named) asked.push_back(ofFamily(entry, instance.size, name));
  return asked;
}

}  // namespace tpn
