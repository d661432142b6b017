// Tokens: where each begins, what it is, what it says.

#include "ectl/scanner.hpp"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

namespace {

struct Seen {
  EctlOper op;
  int arg;
  std::string text;
  std::size_t column;
  friend bool operator==(const Seen&, const Seen&) = default;
};

std::optional<Seen> seenAt(const std::string& text, std::size_t at,
                           Spelling spelling = Spelling::parser) {
  const std::optional<Token> token = tokenAt(text, at, spelling);
  if (!token) return std::nullopt;
  return Seen{token->op, token->arg, std::string(token->text), token->column};
}

TEST(Scanner, GivesEveryTokenWithItsColumn) {
  const std::string text = "p1p-007&TEUEXp";
  const std::vector<Seen> expected{
      {EctlOper::prop, 1, "p1", 1},         {EctlOper::negProp, 7, "p-007", 3},
      {EctlOper::conj, 0, "&", 8},          {EctlOper::truth, 0, "T", 9},
      {EctlOper::existsUntil, 0, "EU", 10}, {EctlOper::existsNext, 0, "EX", 12},
      {EctlOper::prop, 0, "p", 14}};
  Scanner scanner(text, Spelling::parser);
  std::vector<Seen> seen;
  while (const std::optional<Token> token = scanner.next())
    seen.push_back({token->op, token->arg, std::string(token->text), token->column});
  EXPECT_EQ(seen, expected);
  EXPECT_FALSE(scanner.next());
}

TEST(Scanner, ColumnsCountAStrayE) {
  Scanner scanner("EEp3", Spelling::parser);
  EXPECT_EQ(scanner.next()->column, 3U);
}

TEST(TokenAt, IsNothingWhereNoTokenBegins) {
  for (const std::string text : {"", " ", "7", "-", "\r", "C", "D", "(", "e"})
    EXPECT_EQ(seenAt(text, 0), std::nullopt) << text;
  EXPECT_EQ(seenAt("p1", 2), std::nullopt);
}

TEST(TokenAt, TakesTheSecondSpellingsInTheTreeViewOnly) {
  EXPECT_EQ(seenAt("C", 0, Spelling::tree), (Seen{EctlOper::conj, 0, "C", 1}));
  EXPECT_EQ(seenAt("D", 0, Spelling::tree), (Seen{EctlOper::disj, 0, "D", 1}));
}

TEST(TokenAt, StrayEIsAnOperatorOfNoKind) {
  for (const std::string text : {"E", "EE", "Ep", "E "})
    EXPECT_EQ(seenAt(text, 0), (Seen{EctlOper::none, 0, "E", 1})) << text;
}

TEST(TokenAt, LooksAtNothingBefore) {
  EXPECT_EQ(seenAt(" ?p12&", 2), (Seen{EctlOper::prop, 12, "p12", 3}));
}

// The digits at text[at], one by one.
unsigned plainNumber(const std::string& text, std::size_t at) {
  unsigned value = 0;
  for (; at < text.size() && '0' <= text[at] && text[at] <= '9'; ++at)
    value = 10 * value + static_cast<unsigned>(text[at] - '0');
  return value;
}

TEST(TakeNumber, TakesAsManyDigitsAsThereAre) {
  const std::string digits = "9081726354019";
  for (std::size_t count = 0; count <= digits.size(); ++count)
    for (const std::string after : {"", "p", "&p1", "/////////", ":::::::::", "\xff\xff\xff\xff",
                                    "-123456789", "p4&p5&p6&p7&",
                                    "\x80"
                                    "12345678"})
      for (const std::string before : {"", "p", "p-"}) {
        const std::string text = before + digits.substr(0, count) + after;
        std::size_t at = before.size();
        EXPECT_EQ(static_cast<unsigned>(takeNumber(text, at)), plainNumber(text, before.size()))
            << text;
        EXPECT_EQ(at, before.size() + count) << text;
      }
}

TEST(TakeNumber, StopsAtEveryOtherCharacter) {
  for (int c = 0; c < 256; ++c) {
    if ('0' <= c && c <= '9') continue;
    const std::string text = "407" + std::string(9, static_cast<char>(c));
    std::size_t at = 0;
    EXPECT_EQ(takeNumber(text, at), 407) << c;
    EXPECT_EQ(at, 3U) << c;
  }
}

}  // namespace
