// tpn make: example networks of any size, and questions about them.

#include <array>
#include <memory>

#include "workbench/base/files.hpp"
#include "workbench/command/complain.hpp"
#include "workbench/command/ranges.hpp"
#include "workbench/command/subcommand.hpp"
#include "workbench/families/families.hpp"
#include "workbench/families/random.hpp"
#include "workbench/nets/bridge.hpp"
#include "workbench/nets/pnmlwriter.hpp"
#include "workbench/nets/tinawriter.hpp"
#include "workbench/network/writer.hpp"

namespace tpn {

namespace {

constexpr std::uint64_t largestSize = 9999999;
constexpr std::uint64_t largestSeed = 2147483646;
constexpr const char* randomName = "random";

struct MakeArguments {
  std::string name;
  std::uint64_t size = 0;
  std::string question;
  std::uint64_t seed = 1;
  std::uint64_t transitions = 0;  // 0: ten a process
  std::string format = "tpn";
  bool infix = false;
};

struct Format {
  const char* name;
  std::string (*text)(const Network& net);
};
constexpr std::array formats{
    Format{"tpn", networkFile},
    Format{"net", [](const Network& net) { return tinaFile(petriNetOf(net)); }},
    Format{"pnml", [](const Network& net) { return pnmlFile(petriNetOf(net)); }}};

// What a command line asks for, wherever the network comes from.
struct Wanted {
  std::function<Network()> network;
  const std::vector<FamilyQuestion>* questions;
};

int refused(const std::string& message) {
  complain("make: " + message);
  return misused;
}

std::string listed() {
  const auto line = [](std::string name, std::string size,
                       const std::vector<FamilyQuestion>& questions) {
    name.resize(std::max<std::size_t>(name.size() + 1, 18), ' ');
    size.resize(std::max<std::size_t>(size.size() + 1, 24), ' ');
    std::string text = name + size;
    for (const FamilyQuestion& question : questions)
      text += (&question == &questions.front() ? "" : " ") + std::string(question.name);
    return text + "\n";
  };
  std::string text = line("NAME", "SIZE", {{"PROPERTY", nullptr, nullptr}});
  for (const Family& family : families())
    text += line(family.name,
                 std::string(family.counted) + ", " + std::to_string(family.least) + " or more",
                 family.questions);
  return text + line(randomName, "processes, 2 or more", dealtQuestions());
}

// Nothing where there is no such network, which has been told.
std::optional<Wanted> randomWanted(const MakeArguments& a) {
  const std::uint64_t transitions = a.transitions == 0 ? 10 * a.size : a.transitions;
  if (a.size < 2) return refused("random has 2 processes or more"), std::nullopt;
  if (transitions < 2 * a.size)
    return refused("random has at least twice as many transitions as processes"), std::nullopt;
  return Wanted{[=] { return dealtNetwork(a.size, transitions, a.seed); }, &dealtQuestions()};
}

std::optional<Wanted> wanted(const MakeArguments& a) {
  if (a.name == randomName) return randomWanted(a);
  const Family* family = familyNamed(a.name);
  if (family == nullptr)
    return refused("there is no " + a.name + "; without arguments, it lists what there is"),
           std::nullopt;
  const int size = static_cast<int>(a.size);
  if (size < family->least)
    return refused(a.name + " has " + std::to_string(family->least) + " or more " +
                   family->counted),
           std::nullopt;
  return Wanted{[=] { return family->network(size); }, &family->questions};
}

int printNetwork(const MakeArguments& a, const Wanted& wanted) {
  for (const Format& format : formats)
    if (format.name == a.format) writeFile("-", format.text(wanted.network()));
  return done;
}

int printQuestion(const MakeArguments& a, const Wanted& wanted) {
  const FamilyQuestion* question = questionNamed(*wanted.questions, a.question);
  if (question == nullptr)
    return refused("there is no property " + a.question + " of " + a.name +
                   "; without arguments, it lists what there is");
  if (!a.infix && question->postfix == nullptr)
    return refused(a.question + " cannot be said in postfix; with --infix it can");
  const auto text = a.infix ? question->infix : question->postfix;
  writeFile("-", text(static_cast<int>(a.size)) + "\n");
  return done;
}

int make(const MakeArguments& a) {
  if (a.name.empty()) {
    writeFile("-", listed());
    return done;
  }
  const std::optional<Wanted> found = wanted(a);
  if (!found) return misused;
  return a.question.empty() ? printNetwork(a, *found) : printQuestion(a, *found);
}

Action declareMake(CLI::App& app) {
  const auto a = std::make_shared<MakeArguments>();
  std::vector<std::string> known;
  for (const Family& family : families()) known.emplace_back(family.name);
  known.emplace_back(randomName);
  CLI::Option* name = app.add_option("NAME", a->name, "the family; without it, list what there is")
                          ->type_name(alternatives(known));
  CLI::Option* size = app.add_option("SIZE", a->size, "how many of what the family is made of")
                          ->type_name("N")
                          ->check(wholeNumber(1, largestSize));
  app.add_option("PROPERTY", a->question, "print this property of the network instead of it");
  name->needs(size);
  app.add_option("--seed", a->seed, "of a random network (1)")
      ->check(wholeNumber(1, largestSeed))
      ->type_name("N");
  app.add_option("--transitions", a->transitions, "of a random network (ten a process)")
      ->check(wholeNumber(1, largestSize))
      ->type_name("N");
  std::vector<std::string> names;
  names.reserve(std::size(formats));
  for (const Format& format : formats) names.emplace_back(format.name);
  app.add_option("--format", a->format, "of the network; tpn where nothing is said")
      ->type_name(alternatives(names))
      ->check(oneOf(names));
  app.add_flag("--infix", a->infix, "print the property in infix notation, with names");
  return [a] { return make(*a); };
}

}  // namespace

const Subcommand makeCommand{"make", "print an example network of any size, or a question about it",
                             declareMake};

}  // namespace tpn
