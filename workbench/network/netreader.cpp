// Where zervan's reader takes any line that is no keyword for numbers, and any number it cannot
// read for 0, this one asks what the line was meant to be. The sections follow in one order; a
// keyword that comes too soon tells which ones are missing before it, and reading goes on behind
// it.
//
// (1) Without an error the lines have been told apart as zervan does: by the first characters of a
//     keyword, in the section where it is waited for.
// (2) Every line is taken once; so reading ends.

#include "workbench/network/netreader.hpp"

#include <algorithm>
#include <utility>

#include "workbench/base/textlines.hpp"
#include "workbench/network/netfields.hpp"
#include "workbench/network/netsections.hpp"

namespace tpn {

namespace {

bool looksLikeData(const Word& first) {
  const char c = first.text.front();
  return (c >= '0' && c <= '9') || c == '+' || c == '-';
}

bool isJust(const Line& line, Keyword keyword) {
  const std::vector<Word> all = words(line);
  return all.size() == 1 && all.front().text == name(keyword);
}

class NetworkReader {
 public:
  NetworkReader(std::string_view text, Report& report, const Checkpoint& checkpoint)
      : text_(text), lines_(nonEmptyLines(text)), report_(report), checkpoint_(checkpoint) {}

  NetworkFile read();

 private:
  // The frame.
  std::size_t readTitle();
  void take(std::size_t i);
  void takeOther(const Line& line);
  void skip(const Line& line, const std::string& what);
  std::size_t goOnAfterEnd(std::size_t i);
  void takeNames(std::size_t i);
  void reportEarlyEnd();
  void reportCarriageReturns();

  // Keywords.
  void takeKeyword(const Line& line, Meant found, Keyword written);
  void reportForm(const Line& line, Meant found, Keyword written);
  void enterAfter(const Line& line, Keyword keyword);

  // Numbers.
  void takeNumbers(const Line& line);

  std::string_view text_;
  std::vector<Line> lines_;
  Report& report_;
  const Checkpoint& checkpoint_;
  NetworkFile file_;
  std::vector<NameLine> headings_;  // "process NAME"
  Section section_ = Section::heading;
  bool skipping_ = false;  // a keyword has been missed already
};

// --- The frame. ---

NetworkFile NetworkReader::read() {
  reportCarriageReturns();
  for (std::size_t i = readTitle(); i < lines_.size();) {
    checkpoint_.at(i);
    take(i);
    i = section_ == Section::over ? goOnAfterEnd(i) : i + 1;
  }
  addHeadings(headings_, file_.names);
  file_.complete = section_ == Section::over;
  if (!file_.complete) reportEarlyEnd();
  return std::move(file_);
}

// The index of the line after it.
std::size_t NetworkReader::readTitle() {
  if (lines_.empty()) return 0;
  const auto heading = [](const Line& line) {
    const auto found = meant(line);
    return found && found->keyword == Keyword::transitions;
  };
  const bool second = lines_.size() > 1 && heading(lines_[1]);
  if (beginsWith(lines_[0], Keyword::transitions) && !second) {
    report_.add(Rule::titleMissing, {lines_[0].number, 1},
                "the first line is the title; zervan takes this one for it");
    return 0;
  }
  file_.title = lines_[0].text;
  while (!file_.title.empty() && file_.title.back() == '\r') file_.title.pop_back();
  return 1;
}

void NetworkReader::take(std::size_t i) {
  const Line& line = lines_[i];
  if (words(line).empty()) {
    if (section_ != Section::labels)  // there it does nothing
      report_.add(Rule::lineBlank, {line.number, 1},
                  "a line of white space only, which zervan does not skip");
    return;
  }
  const std::optional<Meant> written = meant(line);
  const std::optional<Meant> found = keywordIn(lines_, i, section_);
  if (found)
    takeKeyword(line, *found, written->keyword);
  else
    takeOther(line);
}

// A line that is no keyword, or not here.
void NetworkReader::takeOther(const Line& line) {
  const bool data = looksLikeData(words(line).front());
  switch (section_) {
    case Section::heading:
      skip(line, "\"transitions\" is");
      if (data) section_ = Section::declarations;
      break;
    case Section::betweenProcesses:
      skip(line, data ? "\"process\" is" : "\"process\" or \"end\" is");
      if (data) enterAfter(line, Keyword::process);
      break;
    case Section::blockEnd:
      skip(line, "\"end\" is");
      return;
    default:
      break;
  }
  if (section_ != Section::heading && section_ != Section::betweenProcesses) takeNumbers(line);
}

void NetworkReader::skip(const Line& line, const std::string& what) {
  if (!std::exchange(skipping_, true))
    report_.add(Rule::keywordMissing, {line.number, 1}, what + " missing before this line");
}

// zervan stops here. The index where reading goes on: behind the last line, unless there are more
// processes.
std::size_t NetworkReader::goOnAfterEnd(std::size_t i) {
  const auto rest = lines_.begin() + static_cast<std::ptrdiff_t>(i) + 1;
  const auto names = std::find_if(rest, lines_.end(), beginsNames);
  const auto isProcess = [](const Line& line) {
    return isJust(line, Keyword::process) || processHeading(line, 0);
  };
  const auto process = std::find_if(rest, names, isProcess);
  if (process != names) {
    report_.add(Rule::endTooEarly, {process->number, words(*process).front().column},
                "a process after the \"end\" that closes the file, in line " +
                    std::to_string(lines_[i].number) + "; zervan does not read it");
    section_ = Section::betweenProcesses;
    return static_cast<std::size_t>(process - lines_.begin());
  }
  const auto holdsWords = [](const Line& line) { return !words(line).empty(); };
  const auto more = std::find_if(rest, names, holdsWords);
  if (more != names)
    report_.add(Rule::afterEnd, {more->number, 1},
                "nothing after the \"end\" that closes the file is read, but names");
  takeNames(static_cast<std::size_t>(names - lines_.begin()) + 1);
  return lines_.size();
}

// From the line behind "names" on.
void NetworkReader::takeNames(std::size_t i) {
  for (; i < lines_.size(); ++i) {
    checkpoint_.at(i);
    if (words(lines_[i]).empty()) continue;
    if (auto name = readNameLine(lines_[i], report_)) file_.names.push_back(std::move(*name));
  }
}

void NetworkReader::reportEarlyEnd() {
  const bool metAgain = !lines_.empty() && !lines_.back().ended &&
                        (section_ == Section::declarations || section_ == Section::moves ||
                         section_ == Section::labels);
  const std::string what = "the file ends where " + awaited(section_) + " is expected; zervan ";
  if (metAgain)
    report_.add(Rule::lastLineOpen, endOf(text_),
                what + "reads this line without a line end again and again");
  else
    report_.add(Rule::endsEarly, endOf(text_), what + "waits for ever");
}

void NetworkReader::reportCarriageReturns() {
  const std::size_t first = text_.find('\r');
  if (first == std::string_view::npos) return;
  const Place at = endOf(text_.substr(0, first));
  report_.add(Rule::carriageReturn, at,
              "carriage return; save the file with Unix line ends (reported once)");
}

// --- Keywords. ---

void NetworkReader::takeKeyword(const Line& line, Meant found, Keyword written) {
  const Keyword expected = endOfSection(section_);
  const bool closesFile = section_ == Section::betweenProcesses && found.keyword == Keyword::end;
  if (!closesFile && found.keyword != expected && !skipping_)
    report_.add(Rule::keywordMissing, {line.number, 1},
                missingBetween(expected, found.keyword) + " missing before this line");
  skipping_ = false;
  reportForm(line, found, written);
  if (closesFile)
    section_ = Section::over;
  else
    enterAfter(line, found.keyword);
}

void NetworkReader::reportForm(const Line& line, Meant found, Keyword written) {
  const std::vector<Word> all = words(line);
  const Place at{line.number, all.front().column};
  if (found.form == Meant::indented)
    report_.add(Rule::keywordIndented, at,
                inQuotes(found.keyword) + " has to begin its line; zervan does not see it here");
  if (found.form == Meant::misspelt)
    report_.add(
        Rule::keywordMisspelt, at,
        inQuotes(all.front().text) + " stands where " + inQuotes(found.keyword) + " is expected");
  const auto number = [](const Word& word) { return isNumber(word.text); };
  if (found.form == Meant::exact && written == found.keyword && all.size() > 2 &&
      std::all_of(all.begin() + 1, all.end(), number))
    report_.add(Rule::keywordTail, {line.number, all[1].column},
                "the numbers behind " + inQuotes(found.keyword) + " are not read");
}

void NetworkReader::enterAfter(const Line& line, Keyword keyword) {
  switch (keyword) {
    case Keyword::transitions:
      section_ = Section::declarations;
      break;
    case Keyword::process:
      file_.processes.push_back({{line.number, 1}, {}, {}});
      if (auto name = processHeading(line, file_.processes.size()))
        headings_.push_back(std::move(*name));
      section_ = Section::moves;
      break;
    case Keyword::valuation:
      if (section_ != Section::moves)  // its "process" is missing
        file_.processes.push_back({{line.number, 1}, {}, {}});
      section_ = Section::labels;
      break;
    case Keyword::endval:
      section_ = Section::blockEnd;
      break;
    default:
      section_ = Section::betweenProcesses;
  }
}

// --- Numbers. ---

void NetworkReader::takeNumbers(const Line& line) {
  skipping_ = false;
  const Word first = words(line).front();
  if (!looksLikeData(first)) {
    report_.add(Rule::notANumber, {line.number, first.column},
                "a number or " + awaited(section_) + " is expected, not " + inQuotes(first.text));
    return;
  }
  if (section_ == Section::declarations) {
    const auto [t, earliest, latest] =
        threeFields(line, {"transition", "earliest time", "latest time"}, report_);
    file_.declarations.push_back({t, earliest, latest});
  } else if (section_ == Section::moves) {
    const auto [t, source, target] = threeFields(line, {"transition", "source", "target"}, report_);
    file_.processes.back().moves.push_back({t, source, target});
  } else {
    file_.processes.back().labels.push_back(labelLine(line, report_));
  }
}

}  // namespace

NetworkFile readNetworkFile(std::string_view text, Report& report, const Checkpoint& checkpoint) {
  return NetworkReader(text, report, checkpoint).read();
}

}  // namespace tpn
