#include "workbench/proof/certificatetext.hpp"

#include <charconv>
#include <limits>
#include <stdexcept>
#include <string_view>

#include "workbench/base/files.hpp"
#include "workbench/network/shown.hpp"

namespace tpn {

namespace {

constexpr std::string_view heading = "tpn certificate 1";

// Writes lines in numbers, or with the names of a network in their places.
class Speller {
 public:
  explicit Speller(const Network* names = nullptr) : names_(names) {}

  std::string line(const LinearInvariant& invariant) const {
    std::string text = "linear " + std::to_string(invariant.total);
    for (const auto& [spot, coefficient] : invariant.coefficients)
      text += " " + std::to_string(coefficient) + "*" + place(spot);
    return text;
  }

  std::string line(const Generator& generator) const {
    std::string text = "generator";
    for (const auto& [from, to] : generator.processes)
      text += " " + process(from) + ">" + process(to);
    for (const auto& [spot, to] : generator.locations) {
      const auto image = generator.processes.find(spot.process);
      const bool moves = image != generator.processes.end();
      text += " " + place(spot) + ">" + location(moves ? image->second : spot.process, to);
    }
    return text;
  }

  std::string line(const AtomClause& clause) const {
    std::string text = "clause";
    for (const Atom& atom : clause) {
      text += atom.positive ? " " : " -";
      text += atom.kind == Atom::location
                  ? place({atom.process, static_cast<int>(atom.value)})
                  : process(atom.process) + ">=" + std::to_string(atom.value);
    }
    return text;
  }

 private:
  std::string process(std::size_t p) const {
    return names_ == nullptr ? std::to_string(number(p)) : shownProcess(*names_, p);
  }
  std::string location(std::size_t p, int l) const {
    return names_ == nullptr ? std::to_string(l) : shownLocation(*names_, p, l);
  }
  std::string place(const Spot& spot) const {
    return process(spot.process) + "@" + location(spot.process, spot.location);
  }

  const Network* names_;
};

constexpr std::string_view remark = "  # ";  // from here to the end of a line

template <class Item>
void write(std::string& out, const Item& item, const Network* names) {
  out += Speller().line(item);
  if (names != nullptr) out.append(remark).append(Speller(names).line(item));
  out += "\n";
}

// One line, taken apart from left to right.
class Cursor {
 public:
  Cursor(std::string_view line, int lineNumber) : rest_(line), line_(lineNumber) {}

  bool atEnd() const { return rest_.empty(); }

  bool accept(std::string_view token) {
    if (!rest_.starts_with(token)) return false;
    rest_.remove_prefix(token.size());
    return true;
  }

  void expect(std::string_view token) {
    if (!accept(token)) refuse("expected '" + std::string(token) + "'");
  }

  // In the one way of writing it: no sign but '-', no zeros in front.
  std::int64_t integer() {
    std::int64_t value = 0;
    const auto [end, error] = std::from_chars(rest_.data(), rest_.data() + rest_.size(), value);
    if (error != std::errc()) refuse("expected a number");
    const std::string_view written(rest_.data(), static_cast<std::size_t>(end - rest_.data()));
    if (written != std::to_string(value)) refuse("'" + std::string(written) + "' is an odd number");
    rest_.remove_prefix(written.size());
    return value;
  }

  std::size_t process() {
    const std::int64_t value = integer();
    if (value < 1 || value > std::numeric_limits<int>::max()) refuse("processes count from 1");
    return static_cast<std::size_t>(value - 1);
  }

  int location() {
    const std::int64_t value = integer();
    if (value < 0 || value > std::numeric_limits<int>::max()) refuse("no number of a location");
    return static_cast<int>(value);
  }

  std::string digest() {
    const std::size_t digits = rest_.find_first_not_of("0123456789abcdef");
    std::string found(rest_.substr(0, digits));
    if (found.size() != 64) refuse("expected 64 hexadecimal digits");
    rest_.remove_prefix(found.size());
    return found;
  }

  [[noreturn]] void refuse(const std::string& why) const {
    throw std::runtime_error("line " + std::to_string(line_) + ": " + why);
  }

 private:
  std::string_view rest_;
  int line_;
};

LinearInvariant readLinear(Cursor& line) {
  LinearInvariant result;
  result.total = line.integer();
  while (line.accept(" ")) {
    const std::int64_t coefficient = line.integer();
    line.expect("*");
    const std::size_t process = line.process();
    line.expect("@");
    if (!result.coefficients.emplace(Spot{process, line.location()}, coefficient).second)
      line.refuse("a location occurs twice");
  }
  return result;
}

Generator readGenerator(Cursor& line) {
  Generator result;
  while (line.accept(" ")) {
    const std::size_t process = line.process();
    bool fresh = false;
    if (line.accept("@")) {
      const Spot from{process, line.location()};
      line.expect(">");
      fresh = result.locations.emplace(from, line.location()).second;
    } else {
      line.expect(">");
      fresh = result.processes.emplace(process, line.process()).second;
    }
    if (!fresh) line.refuse("an image is given twice");
  }
  return result;
}

AtomClause readClause(Cursor& line) {
  AtomClause result;
  while (line.accept(" ")) {
    Atom atom;
    atom.positive = !line.accept("-");
    atom.process = line.process();
    if (line.accept("@")) {
      atom.value = line.location();
    } else {
      line.expect(">=");
      atom.kind = Atom::clock;
      atom.value = line.integer();
      if (atom.value < 1) line.refuse("a clock is compared with 1 or more");
    }
    result.push_back(atom);
  }
  return result;
}

void readItem(Cursor& line, Certificate& proof) {
  if (line.accept("linear "))
    proof.linear.push_back(readLinear(line));
  else if (line.accept("generator"))
    proof.generators.push_back(readGenerator(line));
  else if (line.accept("clause"))
    proof.clauses.push_back(readClause(line));
  else
    line.refuse("expected 'linear', 'generator', 'clause' or 'end'");
}

// The lines of a text, each of which has to be taken apart to its end.
class Lines {
 public:
  explicit Lines(std::string_view text) : rest_(text) {}

  Cursor next() {
    ++number_;
    const std::size_t end = rest_.find('\n');
    if (end == std::string_view::npos)
      throw std::runtime_error("line " + std::to_string(number_) + ": the file ends too early");
    const std::string_view whole = rest_.substr(0, end);
    const Cursor line(whole.substr(0, whole.find(remark)), number_);
    rest_.remove_prefix(end + 1);
    return line;
  }

  void expectEnd() const {
    if (!rest_.empty())
      throw std::runtime_error("line " + std::to_string(number_ + 1) + ": text after the end");
  }

 private:
  std::string_view rest_;
  int number_ = 0;
};

void finish(const Cursor& line) {
  if (!line.atEnd()) line.refuse("the line goes on too long");
}

Statement readStatement(Lines& lines) {
  Statement about;
  Cursor line = lines.next();
  line.expect("network ");
  about.network = line.digest();
  finish(line);
  line = lines.next();
  line.expect("goal ");
  about.goal = line.digest();
  finish(line);
  line = lines.next();
  line.expect("unit ");
  about.unit = line.integer();
  finish(line);
  return about;
}

}  // namespace

std::string certificateText(const CertificateFile& file, const Network* net) {
  const Network* const names = net != nullptr && net->names != Names{} ? net : nullptr;
  std::string out = std::string(heading) + "\n";
  out += "network " + file.about.network + "\n";
  out += "goal " + file.about.goal + "\n";
  out += "unit " + std::to_string(file.about.unit) + "\n";
  for (const LinearInvariant& invariant : file.proof.linear) write(out, invariant, names);
  for (const Generator& generator : file.proof.generators) write(out, generator, names);
  for (const AtomClause& clause : file.proof.clauses) write(out, clause, names);
  return out + "end\n";
}

CertificateFile readCertificate(const std::string& text) {
  Lines lines(text);
  Cursor first = lines.next();
  first.expect(heading);
  finish(first);
  CertificateFile file;
  file.about = readStatement(lines);
  for (;;) {
    Cursor line = lines.next();
    const bool last = line.accept("end");
    if (!last) readItem(line, file.proof);
    finish(line);
    if (last) break;
  }
  lines.expectEnd();
  return file;
}

CertificateFile readCertificateFile(const std::string& name) {
  const std::string text = readFile(name);
  try {
    return readCertificate(text);
  } catch (const std::runtime_error& e) {
    throw std::runtime_error(name + ": " + e.what());
  }
}

}  // namespace tpn
