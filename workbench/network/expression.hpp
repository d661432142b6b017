// A property in infix notation, as it was written: a tree, and where in the text each part stands.
//
//     implies  ::=  or [ "->" implies ]
//     or       ::=  and { "||" and }
//     and      ::=  not { "&&" not }
//     not      ::=  { "!" } primary
//     primary  ::=  "(" implies ")" | "true" | "false" | "deadlock" | spot | name
//                |  ("atleast" | "atmost" | "exactly") "(" number "," pattern ")"
//     spot     ::=  part "." part                    process.location
//     pattern  ::=  piece [ "." piece ]              with a dot locations, without propositions
//     part     ::=  name | number
//     piece    ::=  name and number characters, and "*" for any run of them; or a name in braces
//
// Names mean nothing yet here. Nothing recurses: a property may be a million levels deep.

#pragma once

#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace tpn {

// A mistake at a place of the text; `at` counts bytes from 0.
struct ExpressionError : std::runtime_error {
  ExpressionError(std::size_t place, const std::string& message)
      : std::runtime_error(message), at(place) {}
  std::size_t at;
};

// A word as it stands: "crit", "4", "crit*", "{two words}".
struct WrittenPart {
  std::string text;     // without the braces
  bool braced = false;  // then a * in it is a letter
  std::size_t at = 0;   // in the text
};

struct Expression {
  enum Kind : std::uint8_t {
    truth,
    falsity,
    deadlock,
    named,     // parts[0]
    spot,      // parts[0], parts[1]: process, location
    counter,   // least .. most of what parts stand for: one part, propositions; two, locations
    negation,  // of left
    conjunction,
    disjunction,
    implication
  };
  struct Node {
    Kind kind = truth;
    std::size_t left = 0;  // indices of nodes
    std::size_t right = 0;
    std::size_t begin = 0;  // the text from here ..
    std::size_t end = 0;    // .. to here, not included
    std::vector<WrittenPart> parts;
    std::int64_t least = 0;  // counter
    std::int64_t most = -1;  // counter; -1: any number
  };
  std::vector<Node> nodes;  // operands before their operators; the last one is the whole
};

// Throws ExpressionError.
Expression parseExpression(std::string_view text);

}  // namespace tpn
