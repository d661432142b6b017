// Families of networks: a name and a size give a network, the same each time, and questions about
// it. What the networks mean is told in examples/, a folder a family.
//
// 1. An interval counts from the moment the last of its processes came to the source location,
//    staying there by a move included. Where a span of time belongs to one process, it is therefore
//    on a transition of that process alone, and what follows with others follows at once.
// 2. Proposition numbers do not depend on the size (postfix.hpp).
// 3. No earliest time exceeds the largest finite latest time, so that zervan can be asked, too.
// 4. Files, figures and answers are kept of these networks: their numbers do not change.

#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "workbench/network/network.hpp"

namespace tpn {

// The text of a question of a size. Each asks for the same states in both notations.
struct FamilyQuestion {
  const char* name;
  std::string (*postfix)(int size);  // null where that notation cannot say it
  std::string (*infix)(int size);
};

struct Family {
  const char* name;
  const char* counted;  // what the size counts: "trains"
  int least;            // the least size
  Network (*network)(int size);
  std::vector<FamilyQuestion> questions;
};

// In the order in which they are listed.
const std::vector<Family>& families();

const Family* familyNamed(std::string_view name);  // null: there is none
const FamilyQuestion* questionNamed(const std::vector<FamilyQuestion>& questions,
                                    std::string_view name);

// About dealtNetwork (random.hpp), by its processes.
const std::vector<FamilyQuestion>& dealtQuestions();

// What families.cpp lists: a network that keeps its promises and one or more that do not.
std::vector<Family> fischerFamilies();
std::vector<Family> crossingFamilies();
std::vector<Family> ringFamilies();
std::vector<Family> handshakeFamilies();
std::vector<Family> pipelineFamilies();
std::vector<Family> csmaFamilies();
std::vector<Family> diningFamilies();
std::vector<Family> lossyFamilies();

}  // namespace tpn
