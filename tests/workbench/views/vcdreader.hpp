// A reader of value change dumps, from the format's definition alone: it knows nothing of the
// signals that our dumps have.

#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

struct VcdSignal {
  std::string type;
  int bits = 0;
};

struct VcdMoment {
  std::int64_t tick = 0;
  std::map<std::string, std::string> values;  // of all signals by full name: "b101", "r0.5", "1"
  std::set<std::string> events;               // those that happened at this tick
};

struct Vcd {
  std::string comment;
  std::string timescale;
  std::map<std::string, VcdSignal> signals;  // by full name: scopes and name, with dots
  std::vector<VcdMoment> moments;            // ticks ascend
};

class VcdReader {
 public:
  explicit VcdReader(const std::string& text) : in_(text) {}

  // Throws std::runtime_error where the text is no dump.
  Vcd read() {
    for (std::string word = next(); word != "$enddefinitions"; word = next()) declaration(word);
    body();  // and what is left of that declaration
    std::string word;
    while (in_ >> word) change(word);
    return vcd_;
  }

 private:
  [[noreturn]] static void fail(const std::string& what) {
    throw std::runtime_error("vcd: " + what);
  }

  std::string next() {
    std::string word;
    if (!(in_ >> word)) fail("ends early");
    return word;
  }

  std::vector<std::string> body() {
    std::vector<std::string> words;
    for (std::string word = next(); word != "$end"; word = next()) words.push_back(word);
    return words;
  }

  void declaration(const std::string& keyword) {
    const std::vector<std::string> words = body();
    if (keyword == "$comment") {
      for (const std::string& word : words) vcd_.comment += word + " ";
    } else if (keyword == "$timescale") {
      for (const std::string& word : words) vcd_.timescale += word;
    } else if (keyword == "$scope") {
      scopes_.push_back(words.at(1));
    } else if (keyword == "$upscope") {
      if (scopes_.empty()) fail("$upscope without a scope");
      scopes_.pop_back();
    } else if (keyword == "$var") {
      variable(words);
    } else {
      fail("unknown declaration " + keyword);
    }
  }

  void variable(const std::vector<std::string>& words) {
    if (words.size() != 4) fail("a $var of " + std::to_string(words.size()) + " words");
    std::string name;
    for (const std::string& scope : scopes_) name += scope + ".";
    name += words[3];
    for (const char c : words[2])
      if (c < '!' || c > '~') fail("a code that does not print");
    if (!names_.emplace(words[2], name).second) fail("two signals " + words[2]);
    vcd_.signals[name] = {words[0], std::stoi(words[1])};
  }

  void change(const std::string& word) {
    if (word == "$dumpvars" || word == "$end") return;
    if (word[0] == '#') {
      moment(std::stoll(word.substr(1)));
    } else if (word[0] == 'b' || word[0] == 'r' || word[0] == 's') {
      value(next(), word);
    } else {
      value(word.substr(1), word.substr(0, 1));
    }
  }

  void moment(std::int64_t tick) {
    VcdMoment fresh;
    if (!vcd_.moments.empty()) fresh = vcd_.moments.back();
    if (!vcd_.moments.empty() && tick <= fresh.tick) fail("time does not ascend");
    fresh.tick = tick;
    fresh.events.clear();
    vcd_.moments.push_back(fresh);
  }

  void value(const std::string& code, const std::string& text) {
    const auto name = names_.find(code);
    if (name == names_.end()) fail("no signal " + code);
    if (vcd_.moments.empty()) fail("a value before any time");
    const VcdSignal& signal = vcd_.signals[name->second];
    if ((signal.type == "real") != (text[0] == 'r')) fail("a wrong kind of value: " + text);
    if ((signal.type == "string") != (text[0] == 's')) fail("a wrong kind of value: " + text);
    if (signal.bits == 1 && signal.type != "string" && text != "0" && text != "1")
      fail("no bit: " + text);
    if (text[0] == 'b' && text.size() - 1 > static_cast<std::size_t>(signal.bits))
      fail("too many bits: " + text);
    if (signal.type == "event")
      vcd_.moments.back().events.insert(name->second);
    else
      vcd_.moments.back().values[name->second] = text;
  }

  std::istringstream in_;
  Vcd vcd_;
  std::vector<std::string> scopes_;
  std::map<std::string, std::string> names_;  // by code
};
