// The readers of the network file and of the property file.
//
// None of them looks for the end of the file: a file that stops short keeps its reader waiting. At
// the end getline leaves its string as it was once the last line came without a line end; a reading
// function meets that line again and again, and as each has a string of its own, only its own.

#include <cctype>
#include <charconv>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string_view>
#include <system_error>

#include "model/tpnmodel.hpp"

namespace {

[[noreturn]] void error(const std::string& message) {
  std::cerr << message << std::endl;
  std::exit(1);
}

// The next line that holds any character at all. A file that has gone bad throws.
void readLine(std::ifstream& file, std::string& line) {
  do {
    std::getline(file, line);
  } while (line.empty());
}

std::ifstream openForReading(const std::string& name) {
  std::ifstream file;
  std::error_code ignored;
  if (!std::filesystem::is_directory(name, ignored)) file.open(name);
  if (!file.is_open()) {
    std::cerr << "Nie moge otworzyc pliku " << name << "\n";
    std::exit(1);
  }
  file.exceptions(std::ios::badbit);  // of memory as well: a line cut short is no line
  return file;
}

// Opens the file and hands it to `read`.
template <class Read>
void readFile(const std::string& name, Read read) {
  std::ifstream file = openForReading(name);
  try {
    read(file);
  } catch (const std::ios_base::failure& failure) {
    throw Unreadable("cannot read " + name + ": " + failure.code().message());
  }
}

// The numbers of a data line. The first that is missing, is none or does not fit into 32 bits ends
// the line: it and all that follow count as 0.
class Numbers {
 public:
  explicit Numbers(const std::string& line) : at_(line.data()), end_(at_ + line.size()) {}

  bool read(int& n) {
    n = 0;
    while (at_ != end_ && std::isspace(static_cast<unsigned char>(*at_)) != 0) ++at_;
    const bool plus = end_ - at_ > 1 && at_[0] == '+' && at_[1] != '-';
    const auto [next, failure] = std::from_chars(at_ + (plus ? 1 : 0), end_, n);
    at_ = failure == std::errc() ? next : end_;
    if (failure != std::errc()) n = 0;
    return failure == std::errc();
  }

  int next() {
    int n = 0;
    read(n);
    return n;
  }

 private:
  const char* at_;
  const char* end_;
};

bool beginsWith(std::string_view line, std::string_view keyword) {
  return line.substr(0, keyword.size()) == keyword;
}

NetTimedModel::Number stored(int n) { return static_cast<NetTimedModel::Number>(n); }

// One more, wrapping: an unterminated last line is counted for as long as the process lives.
int oneMore(int count) { return static_cast<int>(static_cast<unsigned>(count) + 1U); }

}  // namespace

void NetTimedModel::readNetwork(std::string name) {
  readFile(name.append(".tpn"), [this](std::ifstream& file) {
    std::string title;
    readLine(file, title);
    readTransitions(file);
    while (readProcess(file)) {
    }
  });
}

void NetTimedModel::readTransitions(std::ifstream& file) {
  std::string line;
  readLine(file, line);
  if (!beginsWith(line, "transitions")) error("\"transitions\" expected\n");

  std::map<int, Pair> intervals;
  readLine(file, line);
  while (!beginsWith(line, "endtran")) {
    Numbers numbers(line);
    const int t = numbers.next();
    const int earliest = numbers.next();
    const int latest = numbers.next();
    maxConst = std::max(maxConst, latest);
    nrOfTrans = oneMore(nrOfTrans);
    intervals[t] = {stored(earliest), stored(latest)};
    readLine(file, line);
  }
  timeIntervals.resize(static_cast<std::size_t>(nrOfTrans) + 1);
  for (const auto& [t, interval] : intervals)
    if (t >= 0 && t <= nrOfTrans) timeIntervals[static_cast<std::size_t>(t)] = interval;
}

bool NetTimedModel::readProcess(std::ifstream& file) {
  std::string line;
  readLine(file, line);
  if (beginsWith(line, "end")) return false;
  if (!beginsWith(line, "process")) error("\"process\" expected\n");

  readLine(file, line);
  std::cout << "wczytywanie procesu\n";
  ++nrOfProcs;
  const Number p = stored(nrOfProcs);
  while (!beginsWith(line, "valuation")) {
    Numbers numbers(line);
    const Number t = stored(numbers.next());
    const Number source = stored(numbers.next());
    const Number target = stored(numbers.next());
    transProcs[t].insert(p);
    localTrans[{p, t}] = {source, target};
    vertices.insert({p, source});
    vertices.insert({p, target});
    readLine(file, line);
  }

  std::cout << "wczytywanie wartosciowania\n";
  readLine(file, line);
  while (!beginsWith(line, "endval")) {
    Numbers numbers(line);
    const Number location = stored(numbers.next());
    for (int q = 0; numbers.read(q);) valuation.insert({{p, location}, stored(q)});
    readLine(file, line);
  }
  readLine(file, line);
  return beginsWith(line, "end");
}

void NetTimedModel::readFormula(std::string name) {
  std::string line;
  readFile(name.append(".tpn"), [&line](std::ifstream& file) { readLine(file, line); });
  formula = std::make_unique<EctlForm>(line);
}
