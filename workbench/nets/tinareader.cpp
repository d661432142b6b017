#include "workbench/nets/tinareader.hpp"

#include <utility>

#include "workbench/nets/netbuilder.hpp"
#include "workbench/nets/tinacomments.hpp"
#include "workbench/nets/tinalexer.hpp"
#include "workbench/network/lintrules.hpp"

namespace tpn {

namespace {

struct SyntaxError {};  // reported already

class TinaReader {
 public:
  TinaReader(std::string_view text, NetReport& report, const Checkpoint& checkpoint)
      : lexer_(text, report, checkpoint),
        report_(report),
        checkpoint_(checkpoint),
        builder_(report) {
    advance();
  }

  PetriNet read();

 private:
  struct Arc {
    std::string name;
    Place at;
    TinaToken sign;  // end: none
    std::int64_t weight = 1;
  };

  void declaration();
  void takeNet();
  void takeTransition();
  void takePlace();
  void takeLabelLine();
  void takePriority();
  void resolveLabels();

  std::optional<std::string> optionalLabel();
  void takeInterval(std::size_t transition);
  std::optional<std::int64_t> time();
  Arc arc();
  std::vector<Arc> arcsUpTo(std::string_view symbol);
  std::vector<Arc> arcsBeforeNext();
  ArcKind kindOf(const Arc& arc, bool intoTransition);
  void join(std::size_t transition, std::size_t place, const Arc& arc, bool intoTransition);

  bool atDeclaration() const { return token_.kind == TinaToken::end || token_.isKeyword(); }
  TinaToken takeName(const char* what);
  std::int64_t takeNumber(const char* what);
  void expect(std::string_view symbol) {
    if (!accept(symbol)) unexpected(std::string(symbol) + " is expected here");
  }
  bool accept(std::string_view symbol) {
    const bool taken = token_.is(symbol);
    if (taken) advance();
    return taken;
  }
  [[noreturn]] void unexpected(const std::string& what);
  void recover();
  void advance() { token_ = lexer_.next(); }

  TinaLexer lexer_;
  NetReport& report_;
  const Checkpoint& checkpoint_;
  NetBuilder builder_;
  TinaToken token_;
  struct LabelLine {
    TinaToken name;
    TinaToken label;
  };
  std::vector<LabelLine> labels_;
};

PetriNet TinaReader::read() {
  while (token_.kind != TinaToken::end) {
    try {
      declaration();
    } catch (const SyntaxError&) {
      recover();
    }
  }
  resolveLabels();
  PetriNet net = builder_.finished(checkpoint_);
  readTinaComments(lexer_.takeComments(), builder_, net, report_, checkpoint_);
  return net;
}

void TinaReader::declaration() {
  if (accept("tr")) return takeTransition();
  if (accept("pl")) return takePlace();
  if (accept("net")) return takeNet();
  if (accept("lb")) return takeLabelLine();
  if (token_.is("pr")) return takePriority();
  unexpected("a declaration is expected here, tr, pl, lb or net");
}

void TinaReader::takeNet() {
  const TinaToken name = takeName("net");
  std::string& known = builder_.net().name;
  if (!known.empty() && known != name.name)
    report_.refuse(NetRule::declaredTwice, name.at,
                   "the net has a name already, " + inQuotes(known));
  known = name.name;
}

void TinaReader::takeTransition() {
  const TinaToken name = takeName("transition");
  const std::size_t t = builder_.transition(name.name, name.at);
  if (const auto label = optionalLabel())
    builder_.label(builder_.net().transitions[t].label, *label, name.at);
  if (token_.is("[") || token_.is("]")) takeInterval(t);
  if (atDeclaration()) return;
  for (const Arc& arc : arcsUpTo("->")) join(t, builder_.place(arc.name, arc.at), arc, true);
  for (const Arc& arc : arcsBeforeNext()) join(t, builder_.place(arc.name, arc.at), arc, false);
}

void TinaReader::takePlace() {
  const TinaToken name = takeName("place");
  const std::size_t p = builder_.place(name.name, name.at);
  if (const auto label = optionalLabel())
    builder_.label(builder_.net().places[p].label, *label, name.at);
  if (token_.is("(")) {
    advance();
    const Place at = token_.at;
    builder_.tokens(p, takeNumber("marking"), at);
    expect(")");
  }
  if (atDeclaration()) return;
  for (const Arc& arc : arcsUpTo("->")) join(builder_.transition(arc.name, arc.at), p, arc, false);
  for (const Arc& arc : arcsBeforeNext()) join(builder_.transition(arc.name, arc.at), p, arc, true);
}

void TinaReader::takeLabelLine() {
  TinaToken name = takeName("place or transition");
  TinaToken label = takeName("label");
  labels_.push_back({std::move(name), std::move(label)});
}

// What they label may be declared further down.
void TinaReader::resolveLabels() {
  for (std::size_t i = 0; i < labels_.size(); ++i) {
    checkpoint_.at(i);
    const auto& [name, label] = labels_[i];
    const auto place = builder_.knownPlace(name.name);
    const auto transition = builder_.knownTransition(name.name);
    if (place && transition)
      report_.refuse(NetRule::nameUnknown, name.at,
                     inQuotes(name.name) + " is both a place and a transition");
    else if (place)
      builder_.label(builder_.net().places[*place].label, label.name, label.at);
    else if (transition)
      builder_.label(builder_.net().transitions[*transition].label, label.name, label.at);
    else
      report_.refuse(NetRule::nameUnknown, name.at,
                     inQuotes(name.name) + " is neither a place nor a transition");
  }
}

void TinaReader::takePriority() {
  report_.refuse(NetRule::priority, token_.at,
                 "priorities: a network has none, each transition may fire in its time");
  advance();
  while (token_.isName() && !atDeclaration()) advance();
  if (!accept("<") && !accept(">")) unexpected("< or > is expected here");
  while (token_.isName() && !atDeclaration()) advance();
}

std::optional<std::string> TinaReader::optionalLabel() {
  if (!accept(":")) return std::nullopt;
  return takeName("label").name;
}

void TinaReader::takeInterval(std::size_t transition) {
  const TinaToken open = token_;
  advance();
  const auto earliest = time();
  expect(",");
  const bool endless = accept("w");
  const auto latest = endless ? std::nullopt : time();
  const TinaToken close = token_;
  if (!accept("[") && !accept("]")) unexpected("[ or ] is expected here, the end of the interval");
  if (endless && close.is("]"))
    report_.refuse(NetRule::syntax, close.at, "behind w stands [, for there is no latest time");
  else if (open.is("]"))
    report_.refuse(NetRule::intervalOpen, open.at,
                   "the interval does not contain its earliest time; only closed ones are taken");
  else if (!endless && close.is("["))
    report_.refuse(NetRule::intervalOpen, close.at,
                   "the interval does not contain its latest time; only closed ones are taken");
  else if (earliest && (endless || latest))
    builder_.interval(transition, {*earliest, latest}, open.at);
}

// Nothing where it is too large, which has been told.
std::optional<std::int64_t> TinaReader::time() {
  const Place at = token_.at;
  const std::int64_t number = takeNumber("time");
  return checkTime(number, at, report_) ? std::optional(number) : std::nullopt;
}

TinaReader::Arc TinaReader::arc() {
  if (!token_.isName()) unexpected("a name or -> is expected here");
  Arc arc{token_.name, token_.at, {}, 1};
  advance();
  for (const std::string_view sign : {"*", "?", "?-", "!", "!-"})
    if (token_.kind == TinaToken::symbol && token_.text == sign) {
      arc.sign = token_;
      advance();
      arc.weight = takeNumber("weight");
      break;
    }
  return arc;
}

std::vector<TinaReader::Arc> TinaReader::arcsUpTo(std::string_view symbol) {
  std::vector<Arc> arcs;
  while (!token_.is(symbol)) {
    if (atDeclaration()) unexpected("-> is expected here");
    arcs.push_back(arc());
  }
  advance();
  return arcs;
}

std::vector<TinaReader::Arc> TinaReader::arcsBeforeNext() {
  std::vector<Arc> arcs;
  while (token_.isName() && !atDeclaration()) arcs.push_back(arc());
  return arcs;
}

ArcKind TinaReader::kindOf(const Arc& arc, bool intoTransition) {
  const std::string_view sign = arc.sign.kind == TinaToken::end ? "*" : arc.sign.text;
  if (sign == "?-")
    report_.refuse(NetRule::inhibitor, arc.sign.at,
                   "an inhibitor arc; a transition can ask for tokens only");
  else if (sign == "!" || sign == "!-")
    report_.refuse(NetRule::stopwatch, arc.sign.at,
                   "a stopwatch arc; the clock of an enabled transition always runs");
  else if (sign == "?" && !intoTransition)
    report_.refuse(NetRule::arcKind, arc.sign.at, "a test arc leads from a place to a transition");
  else if (sign == "?")
    return ArcKind::read;
  return intoTransition ? ArcKind::consume : ArcKind::produce;
}

void TinaReader::join(std::size_t transition, std::size_t place, const Arc& arc,
                      bool intoTransition) {
  const ArcKind kind = kindOf(arc, intoTransition);
  builder_.arc(kind, transition, place, arc.weight, arc.at);
}

TinaToken TinaReader::takeName(const char* what) {
  if (!token_.isName() || atDeclaration())
    unexpected(std::string("the name of a ") + what + " is expected here");
  TinaToken name = token_;
  advance();
  return name;
}

std::int64_t TinaReader::takeNumber(const char* what) {
  const auto number = token_.kind == TinaToken::word ? tinaNumber(token_.text) : std::nullopt;
  if (!number) unexpected(std::string("a ") + what + " is expected here, a whole number");
  advance();
  return *number;
}

void TinaReader::unexpected(const std::string& what) {
  // A name without an end has been reported.
  if (token_.kind != TinaToken::unknown || token_.text.front() != '{')
    report_.refuse(NetRule::syntax, token_.at,
                   what + (token_.kind == TinaToken::end ? ", where the file ends"
                                                         : ", not " + inQuotes(token_.text)));
  throw SyntaxError();
}

// Up to the next line that begins a declaration.
void TinaReader::recover() {
  do advance();
  while (token_.kind != TinaToken::end && !(token_.first && atDeclaration()));
}

}  // namespace

std::optional<PetriNet> readTina(const std::string& file, std::string_view text,
                                 Diagnostics& diagnostics, const Checkpoint& checkpoint) {
  NetReport report(file, diagnostics);
  PetriNet net = TinaReader(text, report, checkpoint).read();
  if (report.refused()) return std::nullopt;
  return net;
}

}  // namespace tpn
