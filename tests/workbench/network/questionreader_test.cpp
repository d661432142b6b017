// Properties in either notation: which one a file is in, and what is said of mistakes.

#include "workbench/network/questionreader.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/workbench/network/strictly.hpp"

namespace {

using testing::IsEmpty;

const std::string namedLamp =
    lamp + "names\nprocess 1 lamp\nlocation 1 1 on\nproposition 4 shines\nproposition 5 warm\n";

Found ask(const std::string& text) {
  const Found net = inNetwork(namedLamp);
  Found found;
  found.property = tpn::readQuestion("phi", text, &*net.network, found.diagnostics);
  EXPECT_EQ(found.property.has_value(), !tpn::hasErrors(found.diagnostics)) << text;
  return found;
}

Found given(const std::string& text) {
  const Found net = inNetwork(namedLamp);
  Found found;
  found.property = tpn::readGivenQuestion(text, &*net.network, found.diagnostics);
  return found;
}

TEST(Question, IsPostfixWhereThatIsInOrder) {
  for (const std::string text : {"p4", "T", "p4p5&\n", "\np4p-5+\nremark && more\n"}) {
    const Found found = ask(text);
    ASSERT_TRUE(found.property) << text;
    EXPECT_FALSE(found.property->infix) << text;
    EXPECT_EQ(found.property->items, inProperty(text).property->items) << text;
  }
}

TEST(Question, IsInfixOtherwise) {
  for (const std::string text : {"shines", "p4 && p5", "!p4", "(p4)", "deadlock", "lamp.on", " p4",
                                 "p4||p5", "p4&&p5", "\n \n  shines && warm\r\nremark"}) {
    const Found found = ask(text);
    ASSERT_TRUE(found.property) << text;
    EXPECT_TRUE(found.property->infix) << text;
    EXPECT_THAT(found.diagnostics, IsEmpty()) << text;
  }
}

TEST(Question, KeepsItsTextAndLine) {
  const Found found = ask("\n\n shines -> warm\n");
  ASSERT_TRUE(found.property);
  EXPECT_EQ(found.property->text, " shines -> warm");
  EXPECT_EQ(found.property->line, 3);
}

TEST(Question, OfPostfixAloneIsToldInItsTerms) {
  EXPECT_EQ(ask("p4&").ids(), (Ids{{1, "operand-missing"}}));
  EXPECT_EQ(ask("p4p5").ids(), (Ids{{1, "operands-left"}}));
  EXPECT_EQ(ask("p4 p5&").ids(), (Ids{{1, "unknown-character"}}));
  EXPECT_EQ(ask("p4EF").ids(), (Ids{{1, "temporal-operator"}}));
  EXPECT_EQ(ask("\n\n").ids(), (Ids{{3, "property-missing"}}));
}

TEST(Question, OfInfixIsToldWhereAndWhat) {
  EXPECT_EQ(ask("p4 &&").ids(), (Ids{{1, "infix-malformed"}}));
  EXPECT_EQ(ask("p4 & p5 )").ids(), (Ids{{1, "infix-malformed"}}));
  const Found found = ask("\nwarm && shine\n");
  ASSERT_EQ(found.diagnostics.size(), 1U);
  EXPECT_EQ(text(found.diagnostics.front()),
            "phi:2:9: error: no proposition `shine`; there is `shines` [infix-unknown]\n"
            "  warm && shine\n"
            "          ^");
}

TEST(Question, WithoutItsNetworkIsLookedAtForItsForm) {
  tpn::Diagnostics found;
  EXPECT_FALSE(tpn::readQuestion("phi", "shines && nothing", nullptr, found));
  EXPECT_THAT(found, IsEmpty());
  EXPECT_FALSE(tpn::readQuestion("phi", "shines &&", nullptr, found));
  EXPECT_EQ(found.size(), 1U);
  EXPECT_TRUE(tpn::readQuestion("phi", "p4", nullptr, found));
  EXPECT_FALSE(tpn::readQuestion("phi", "p4&&p5", nullptr, found));
  EXPECT_EQ(found.size(), 1U);
}

TEST(GivenQuestion, IsInfix) {
  const Found found = given("atleast(1, *.on)");
  ASSERT_TRUE(found.property);
  EXPECT_EQ(found.property->text, "atleast(1, *.on)");
  EXPECT_FALSE(given("p4p5&").property);
  EXPECT_FALSE(given("").property);
}

TEST(GivenQuestion, IsCalledByItsOption) {
  const Found found = given("true && \xff");
  ASSERT_EQ(found.diagnostics.size(), 1U);
  EXPECT_EQ(text(found.diagnostics.front()),
            "-p:1:9: error: \"\\xff\" begins nothing here [infix-malformed]\n"
            "  true && \xEF\xBF\xBD\n"
            "          ^");
}

TEST(LintNotation, IsARemarkOnInfixAlone) {
  tpn::Diagnostics found;
  lintNotation("phi", *ask("p4").property, found);
  EXPECT_THAT(found, IsEmpty());
  lintNotation("phi", *ask("shines").property, found);
  ASSERT_EQ(found.size(), 1U);
  EXPECT_EQ(found.front().id, "property-infix");
}

}  // namespace
