#include "workbench/nets/tinacomments.hpp"

#include <limits>

#include "workbench/nets/tinalexer.hpp"
#include "workbench/network/namelines.hpp"

namespace tpn {

namespace {

constexpr std::string_view opening = "# tpn processes 1";
constexpr std::string_view closing = "# tpn end";

std::string_view trimmed(std::string_view text) {
  const std::size_t last = text.find_last_not_of(" \t\r");
  return text.substr(0, last == std::string_view::npos ? 0 : last + 1);
}

class CommentReader {
 public:
  CommentReader(const NetBuilder& names, PetriNet& net, NetReport& report,
                const Checkpoint& checkpoint)
      : names_(names), net_(net), report_(report), checkpoint_(checkpoint) {
    net_.origin.emplace().spots.resize(net_.places.size());
  }

  void take(const Line& comment) {
    // Columns stay what they are.
    std::string text(comment.text);
    text.front() = ' ';
    const Line line{text, comment.number, true};
    const std::vector<Word> all = words(line);
    if (all.empty()) return;
    if (all.front().text == "place") return takePlace(line);
    Report report = report_.asNetworkFile();
    if (auto name = readNameLine(line, report)) net_.origin->names.push_back(std::move(*name));
  }

 private:
  void takePlace(const Line& line) {
    TinaLexer lexer(line.text, report_, checkpoint_);
    lexer.next();
    const TinaToken name = lexer.next();
    const Place at{line.number, name.at.column};
    const auto place = name.isName() ? names_.knownPlace(name.name) : std::nullopt;
    if (!place) return refuse(at, "a place of the net is expected here");
    PetriNet::Spot& spot = net_.origin->spots[*place];
    if (spot.process != 0) return refuse(at, "this place has a process already");
    spot.at = at;
    std::vector<int> numbers;
    for (TinaToken token = lexer.next(); token.kind != TinaToken::end; token = lexer.next()) {
      const auto value = tinaNumber(token.text);
      if (!value || *value > std::numeric_limits<int>::max())
        return refuse({line.number, token.at.column}, "a number is expected here");
      numbers.push_back(static_cast<int>(*value));
    }
    if (numbers.size() < 2 || numbers[0] == 0)
      return refuse(at, "the number of a process, from 1, and of a location are expected here");
    spot.process = numbers[0];
    spot.location = numbers[1];
    spot.propositions = {numbers.begin() + 2, numbers.end()};
  }

  void refuse(Place at, const std::string& why) { report_.refuse(NetRule::processLine, at, why); }

  const NetBuilder& names_;
  PetriNet& net_;
  NetReport& report_;
  const Checkpoint& checkpoint_;
};

std::string placeLine(const std::string& name, const PetriNet::Spot& spot) {
  std::string line = "# place " + tinaName(name) + " " + std::to_string(spot.process) + " " +
                     std::to_string(spot.location);
  for (const int q : spot.propositions) line += " " + std::to_string(q);
  return line + "\n";
}

}  // namespace

void readTinaComments(const std::vector<Line>& comments, const NetBuilder& names, PetriNet& net,
                      NetReport& report, const Checkpoint& checkpoint) {
  std::optional<CommentReader> reader;
  bool open = false;
  for (std::size_t i = 0; i < comments.size(); ++i) {
    checkpoint.at(i);
    const Line& comment = comments[i];
    const std::string_view text = trimmed(comment.text);
    if (text == opening) {
      if (reader)
        report.refuse(NetRule::processLine, {comment.number, 1}, "the processes are told already");
      else
        reader.emplace(names, net, report, checkpoint);
      open = true;
    } else if (text == closing) {
      open = false;
    } else if (open) {
      reader->take(comment);
    }
  }
  if (open)
    report.refuse(NetRule::processLine, {comments.back().number, 1},
                  "\"" + std::string(closing) + "\" is missing behind this line");
}

std::string tinaComments(const PetriNet& net) {
  if (!net.origin) return "";
  std::string lines = std::string(opening) + "\n";
  for (std::size_t p = 0; p < net.places.size(); ++p)
    if (net.origin->spots[p].process > 0)
      lines += placeLine(net.places[p].name, net.origin->spots[p]);
  for (const NameLine& name : net.origin->names) lines += "# " + nameLineText(name) + "\n";
  return lines + std::string(closing) + "\n";
}

}  // namespace tpn
