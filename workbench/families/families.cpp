#include "workbench/families/families.hpp"

#include <algorithm>

#include "workbench/families/postfix.hpp"

namespace tpn {

namespace {

std::vector<Family> listed() {
  std::vector<Family> all;
  for (const auto part : {fischerFamilies, crossingFamilies, ringFamilies, handshakeFamilies,
                          pipelineFamilies, csmaFamilies, diningFamilies, lossyFamilies})
    for (Family& family : part()) all.push_back(std::move(family));
  return all;
}

// The first of this name, or null.
template <class T>
const T* named(const std::vector<T>& all, std::string_view name) {
  const auto found =
      std::find_if(all.begin(), all.end(), [&](const T& one) { return one.name == name; });
  return found == all.end() ? nullptr : &*found;
}

}  // namespace

const std::vector<Family>& families() {
  static const std::vector<Family> all = listed();
  return all;
}

const Family* familyNamed(std::string_view name) { return named(families(), name); }

const FamilyQuestion* questionNamed(const std::vector<FamilyQuestion>& questions,
                                    std::string_view name) {
  return named(questions, name);
}

const std::vector<FamilyQuestion>& dealtQuestions() {
  static const std::vector<FamilyQuestion> all{
      {"one", [](int) { return proposed(1); }, [](int) { return proposed(1); }},
      {"three", [](int size) { return everyOne(1, std::min(size, 3)); },
       [](int size) { return std::string(size == 2 ? "p11 && p21" : "p11 && p21 && p31"); }},
  };
  return all;
}

}  // namespace tpn
