// Pages: what they hold, what they forbid, and that names are text in them wherever they stand.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>

#include "tests/workbench/views/viewruns.hpp"
#include "workbench/views/page/html.hpp"
#include "workbench/views/page/policy.hpp"

namespace tpn {
namespace {

using testing::HasSubstr;
using testing::Not;

constexpr const char* hostile = "</style></script><script>\"'`]]>--><b onload=x>&{}\\";

std::size_t countOf(const std::string& part, const std::string& text) {
  std::size_t count = 0;
  for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1))
    ++count;
  return count;
}

// What stands between the first `begin` and the next `end`.
std::string between(const std::string& text, const std::string& begin, const std::string& end) {
  const std::size_t from = text.find(begin) + begin.size();
  return text.substr(from, text.find(end, from) - from);
}

Network renamed(Network net, const std::string& name) {
  net.title = name;
  for (std::size_t p = 0; p < net.processes.size(); ++p) {
    net.names.processes[p] = name + std::to_string(p);
    for (const int l : net.processes[p].locations)
      net.names.locations[{p, l}] = name + std::to_string(l);
  }
  for (std::size_t t = 0; t < net.transitions.size(); ++t)
    net.names.transitions[t] = name + std::to_string(t);
  for (const int q : propositions(net)) net.names.propositions[q] = name + std::to_string(q);
  return net;
}

std::string pageOf(const Shown& shown) { return runHtml(shown.net, shown.property, shown.run); }

Answer unanswered() {
  Answer answer;
  answer.reason = "the time is over";
  answer.noRunUpTo = 4;
  return answer;
}

// By sha256sum and base64.
TEST(PagePolicy, KnowsStyleAndScriptByDigest) {
  EXPECT_EQ(contentPolicy("abc", "a much longer text than that"),
            "default-src 'none'; style-src 'sha256-ungWv48Bz+pBQUDeXa4iI7ADYaOWF3qctBD/YfIAFa0='; "
            "script-src 'sha256-aJ3j5q0Ku9jNIE7zV/aV48mZPu3HlTcBNDwDEi6LsYI='; "
            "base-uri 'none'; form-action 'none'");
}

TEST(PagePolicy, ForbidsScriptsWhereThereIsNone) {
  EXPECT_THAT(contentPolicy("abc", ""), HasSubstr("script-src 'none'"));
}

TEST(PagePolicy, IsThatOfTheStyleAndTheScriptOnThePage) {
  const std::string page = pageOf(violation());
  const std::string policy =
      contentPolicy(between(page, "<style>", "</style>"), between(page, "<script>", "</script>"));
  EXPECT_THAT(page, HasSubstr("content=\"" + policy + "\""));
  EXPECT_THAT(page, Not(HasSubstr("unsafe-")));
  EXPECT_THAT(page, Not(HasSubstr(" style=")));
  EXPECT_EQ(countOf("<style", page), 1U);
}

TEST(Page, NeedsNothingFromElsewhere) {
  const std::string page = pageOf(violation());
  EXPECT_EQ(countOf("http", page),
            countOf("http-equiv", page) + countOf("http://www.w3.org/", page));
  EXPECT_THAT(page, Not(HasSubstr("src=")));
  EXPECT_THAT(page, Not(HasSubstr("url(")));
  EXPECT_THAT(page, Not(HasSubstr("@import")));
}

TEST(Page, NamesAreTextWhereverTheyStand) {
  Shown shown = violation();
  const std::string plain = pageOf(shown);
  shown.net = renamed(shown.net, hostile);
  shown.property.text = hostile;  // as long as what it was is about: all marks are inside
  const std::string page = pageOf(shown);
  for (const char* tag : {"<script", "</script", "<style", "</style", "<b ", "]]>", "--><"})
    EXPECT_EQ(countOf(tag, page), countOf(tag, plain)) << tag;
  EXPECT_THAT(page, HasSubstr("&lt;/style&gt;&lt;/script&gt;&lt;script&gt;&quot;&apos;`]]&gt;"));
}

TEST(Page, OfARunWithoutAQuestionHasNone) {
  const Network net = violation().net;
  const std::string page = runHtml(net, anything(), {{}, 0});
  EXPECT_THAT(page, HasSubstr("a run of 0 transitions"));
  EXPECT_THAT(page, Not(HasSubstr("id=\"question\"")));
  EXPECT_THAT(page, HasSubstr("id=\"slider\""));
}

TEST(Page, MarksThePartOfTheQuestionThatHeld) {
  Shown shown = violation();
  shown.property = propertyOf("p-1p2+");
  shown.run = {{}, 0};
  EXPECT_THAT(pageOf(shown), HasSubstr("<code><mark>p-1</mark>p2+</code>"));
}

TEST(Page, FoldsALongQuestionAndCutsNothing) {
  Shown shown = violation();
  std::string text = "p-1";
  for (int i = 0; i < 300; ++i) text += "p-1&";
  shown.property = propertyOf(text);
  shown.run = {{}, 0};
  const std::string folded = between(pageOf(shown), "<details>", "</details>");
  EXPECT_EQ(countOf("p-1", folded), 301U);
}

TEST(Page, WithoutAnAnswerTellsWhatIsKnown) {
  const Shown shown = violation();
  const std::string page = answerHtml(shown.net, shown.property, unanswered());
  EXPECT_THAT(page, HasSubstr("undecided: the time is over; no run of up to 4 transitions"));
  EXPECT_THAT(page, Not(HasSubstr("<script")));
}

TEST(Page, WithoutARunTellsWhyThereIsNone) {
  const Shown shown = violation();
  Answer never;
  never.kind = Answer::unreachable;
  never.certificate = Certificate{{}, {}, {{{Atom::location, false, 0, 1}}}};
  const std::string page = answerHtml(shown.net, shown.property, never);
  EXPECT_THAT(page, HasSubstr("id=\"invariant\""));
  EXPECT_THAT(page, HasSubstr("<li>Never: process 1 is in location 1.</li>"));
}

// It is worth having all the same.
TEST(Page, SaysWhereTheNetworkCannotBeDrawn) {
  const std::string path = std::getenv("PATH");
  setenv("PATH", "/nowhere", 1);
  const std::string page = pageOf(violation());
  setenv("PATH", path.c_str(), 1);
  EXPECT_THAT(page, HasSubstr("there is no dot to draw with"));
  EXPECT_THAT(page, HasSubstr("id=\"lanes\""));
}

TEST(InlineSvg, IsTheElementWithoutStyles) {
  EXPECT_EQ(inlineSvg("<?xml?>\n<!-- a -->\n<svg>\n<style>\np {}\n</style>\n<g/></svg>\n"),
            "<svg>\n<g/></svg>\n");
  EXPECT_EQ(inlineSvg("<svg><style>"), "<svg>");
  EXPECT_EQ(inlineSvg("nothing"), "");
}

TEST(DataBlock, EndsWhereItShould) {
  EXPECT_EQ(dataBlock("d", "[\"</script><!--<script>\"]"),
            "<script type=\"application/json\" "
            "id=\"d\">[\"\\u003c/script\\u003e\\u003c!--\\u003cscript\\u003e\"]"
            "</script>\n");
}

}  // namespace
}  // namespace tpn
