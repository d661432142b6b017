#include "workbench/proof/circuit.hpp"

#include <cassert>

namespace tpn {

Circuit::Literal Circuit::input(std::string name) {
  assert(latches_.empty() && gates_.empty());
  inputs_.push_back({static_cast<Literal>(2 * (inputs_.size() + 1)), std::move(name)});
  return inputs_.back().literal;
}

Circuit::Literal Circuit::latch(std::string name) {
  assert(gates_.empty());
  const auto literal = static_cast<Literal>(2 * (inputs_.size() + latches_.size() + 1));
  latches_.push_back({literal, no, std::move(name)});
  return literal;
}

void Circuit::next(Literal latch, Literal value) {
  const std::size_t index = latch / 2 - inputs_.size() - 1;
  assert(index < latches_.size() && latches_[index].literal == latch);
  latches_[index].next = value;
}

void Circuit::bad(Literal signal, std::string name) { bads_.push_back({signal, std::move(name)}); }

Circuit::Literal Circuit::literal(std::size_t gate) const {
  return static_cast<Literal>(2 * (inputs_.size() + latches_.size() + gate + 1));
}

Circuit::Literal Circuit::both(Literal a, Literal b) {
  if (a < b) std::swap(a, b);
  if (b == no || a == inverted(b)) return no;
  if (b == yes || a == b) return a;
  const std::uint64_t key = (std::uint64_t{a} << 32U) | b;
  const auto [entry, isNew] = found_.try_emplace(key, no);
  if (isNew) {
    entry->second = literal(gates_.size());
    gates_.push_back({a, b});
  }
  return entry->second;
}

// Balanced: checkers that walk a circuit recursively would not survive chains of many thousands.
Circuit::Literal Circuit::all(std::vector<Literal> literals) {
  if (literals.empty()) return yes;
  for (std::size_t next = 0; next + 1 < literals.size(); next += 2)
    literals.push_back(both(literals[next], literals[next + 1]));
  return literals.back();
}

Circuit::Literal Circuit::any(std::vector<Literal> literals) {
  for (Literal& literal : literals) literal = inverted(literal);
  return inverted(all(std::move(literals)));
}

namespace {

std::string header(const Circuit& c, const char* form) {
  const std::size_t variables = c.inputs().size() + c.latches().size() + c.gates().size();
  std::string text = form;
  for (const std::size_t number : {variables, c.inputs().size(), c.latches().size(), std::size_t{0},
                                   c.gates().size(), c.bads().size()})
    text += " " + std::to_string(number);
  return text + "\n";
}

std::string badLines(const Circuit& c) {
  std::string text;
  for (const Circuit::Named& bad : c.bads()) text += std::to_string(bad.literal) + "\n";
  return text;
}

template <class List>
std::string names(const List& list, char kind) {
  std::string text;
  for (std::size_t i = 0; i < list.size(); ++i)
    text += kind + std::to_string(i) + " " + list[i].name + "\n";
  return text;
}

std::string symbols(const Circuit& c, const std::string& comment) {
  std::string text = names(c.inputs(), 'i') + names(c.latches(), 'l') + names(c.bads(), 'b');
  if (!comment.empty()) text += "c\n" + comment;
  return text;
}

// Seven bits a byte, the low ones first; the high bit says that more follow.
void appendNumber(std::string& out, Circuit::Literal number) {
  for (; number >= 128; number >>= 7U) out += static_cast<char>((number & 127U) | 128U);
  out += static_cast<char>(number);
}

}  // namespace

std::string asciiAiger(const Circuit& circuit, const std::string& comment) {
  std::string text = header(circuit, "aag");
  for (const Circuit::Named& input : circuit.inputs()) text += std::to_string(input.literal) + "\n";
  for (const Circuit::Latch& latch : circuit.latches())
    text += std::to_string(latch.literal) + " " + std::to_string(latch.next) + "\n";
  text += badLines(circuit);
  for (std::size_t i = 0; i < circuit.gates().size(); ++i) {
    const Circuit::Gate& gate = circuit.gates()[i];
    text += std::to_string(circuit.literal(i)) + " " + std::to_string(gate.left) + " " +
            std::to_string(gate.right) + "\n";
  }
  return text + symbols(circuit, comment);
}

std::string binaryAiger(const Circuit& circuit, const std::string& comment) {
  std::string text = header(circuit, "aig");
  for (const Circuit::Latch& latch : circuit.latches()) text += std::to_string(latch.next) + "\n";
  text += badLines(circuit);
  for (std::size_t i = 0; i < circuit.gates().size(); ++i) {
    const Circuit::Gate& gate = circuit.gates()[i];
    appendNumber(text, circuit.literal(i) - gate.left);
    appendNumber(text, gate.left - gate.right);
  }
  return text + symbols(circuit, comment);
}

}  // namespace tpn
