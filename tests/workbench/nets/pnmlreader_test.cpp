// PNML, element by element.

#include "workbench/nets/pnmlreader.hpp"

#include <gtest/gtest.h>

#include "workbench/nets/pnmlwriter.hpp"
#include "workbench/nets/tinareader.hpp"

namespace tpn {
namespace {

PetriNet read(const std::string& text) {
  Diagnostics found;
  const auto net = readPnml("net", text, found);
  for (const Diagnostic& d : found) ADD_FAILURE() << tpn::text(d) << "\n" << text;
  return net.value_or(PetriNet{});
}

PetriNet tina(const std::string& text) {
  Diagnostics found;
  const auto net = readTina("net", text, found);
  EXPECT_TRUE(net) << text;
  return net.value_or(PetriNet{});
}

std::string pnml(const std::string& inside) {
  return "<pnml><net id=\"n\" type=\"http://www.laas.fr/tina/tpn\">" + inside + "</net></pnml>";
}

std::string place(const std::string& id, const std::string& inside = "") {
  return "<place id=\"" + id + "\">" + inside + "</place>";
}
std::string transition(const std::string& id, const std::string& inside = "") {
  return "<transition id=\"" + id + "\">" + inside + "</transition>";
}
std::string arc(const std::string& from, const std::string& to, const std::string& inside = "") {
  return "<arc id=\"" + from + "-" + to + "\" source=\"" + from + "\" target=\"" + to + "\">" +
         inside + "</arc>";
}
std::string text(const std::string& tag, const std::string& inside) {
  return "<" + tag + "><text>" + inside + "</text></" + tag + ">";
}
std::string delay(const std::string& closure, const std::string& bounds) {
  return "<delay><interval closure=\"" + closure + "\">" + bounds + "</interval></delay>";
}

std::vector<std::string> complaints(const std::string& text) {
  Diagnostics found;
  EXPECT_FALSE(readPnml("net", text, found));
  std::vector<std::string> all;
  for (const Diagnostic& d : found)
    all.push_back(std::to_string(d.line) + ":" + std::to_string(d.column) + " " + d.id);
  return all;
}

using Complaints = std::vector<std::string>;

TEST(PnmlReader, TakesPlacesTransitionsAndArcs) {
  EXPECT_TRUE(read(pnml(text("name", "n") + place("a", text("initialMarking", " 1 ")) + place("b") +
                        transition("t", delay("closed", "<cn>1</cn><cn> 2 </cn>")) + arc("a", "t") +
                        arc("t", "b", text("inscription", "1")))) ==
              tina("net n pl a (1) pl b tr t [1,2] a -> b"));
}

TEST(PnmlReader, TakesPagesWithinPages) {
  EXPECT_TRUE(read(pnml("<page>" + place("a") + "<page>" + transition("t") + "<page/></page>" +
                        arc("a", "t") + "</page><page>" + place("b") + "</page>")) ==
              tina("pl a pl b tr t a ->"));
}

TEST(PnmlReader, TakesTestArcs) {
  EXPECT_TRUE(read(pnml(place("a") + transition("t") + arc("a", "t", "<type value=\"test\"/>"))) ==
              tina("tr t a?1 ->"));
}

TEST(PnmlReader, TakesIntervalsWithoutALimit) {
  for (const std::string closure : {"closed", "closed-open"})
    EXPECT_TRUE(read(pnml(transition("t", delay(closure, "<cn>3</cn><ci>infty</ci>")))) ==
                tina("tr t [3,w["));
}

TEST(PnmlReader, CallsThingsByTheirNames) {
  EXPECT_TRUE(read(pnml(place("p1", text("name", "a b")) + place("p2", text("name", "b")) +
                        transition("t1", text("name", "a b")) + arc("p2", "t1"))) ==
              tina("pl {a b} tr {a b} b ->"));
}

TEST(PnmlReader, CallsThingsByTheirIdsWhereNamesAreNotDistinct) {
  EXPECT_TRUE(read(pnml(place("p1", text("name", "a")) + place("p2", text("name", "a")))) ==
              tina("pl p1 pl p2"));
  EXPECT_TRUE(read(pnml(place("p1", text("name", "a")) + place("p2"))) == tina("pl p1 pl p2"));
}

TEST(PnmlReader, KnowsEntitiesOfXmlAndNoOthers) {
  EXPECT_EQ(read(pnml(place("p", text("name", "&lt;&#65;&amp;")))).places[0].name, "<A&");
}

TEST(PnmlReader, PassesOverWhatOthersAdd) {
  const std::string graphics = "<graphics><position x=\"1\"/></graphics>";
  const std::string tool = "<toolspecific tool=\"x\"><location process=\"7\"/></toolspecific>";
  EXPECT_TRUE(read("<?xml version=\"1.0\"?>\n<!-- x -->" +
                   pnml(graphics + tool + "<!-- y -->" + place("a", graphics + tool) +
                        transition("t", tool + graphics) + arc("a", "t", graphics + tool))) ==
              tina("tr t a ->"));
}

TEST(PnmlReader, MayPrefixItsElements) {
  EXPECT_TRUE(read("<x:pnml><x:net type=\"ptnet\"><x:place id=\"a\"/></x:net></x:pnml>") ==
              tina("pl a"));
}

std::string nested(const std::string& units) {
  return "<toolspecific tool=\"nupn\" version=\"1.1\"><size/><structure root=\"u0\">" + units +
         "</structure></toolspecific>";
}
std::string unit(const std::string& id, const std::string& places) {
  return "<unit id=\"" + id + "\"><places>" + places + "</places><subunits/></unit>";
}

TEST(PnmlReader, TakesNestedUnits) {
  const PetriNet net = read(pnml(place("a") + place("b") + place("c") +
                                 nested(unit("u0", "") + unit("u1", "c\n a") + unit("u2", "b"))));
  ASSERT_EQ(net.units.size(), 2U);
  EXPECT_EQ(net.units[0].name, "u1");
  EXPECT_EQ(net.units[0].places, (std::vector<std::size_t>{0, 2}));
  EXPECT_EQ(net.units[1].places, (std::vector<std::size_t>{1}));
}

TEST(PnmlReader, ReadsItsUnitsAgain) {
  PetriNet net = tina("pl a pl b");
  net.units = {{"u", {0, 1}}};
  EXPECT_TRUE(read(pnmlFile(net)) == net);
}

TEST(PnmlReader, FindsEveryMistake) {
  EXPECT_EQ(complaints(pnml("\n" + place("a", text("initialMarking", "2")) + "\n" +
                            transition("t", delay("open", "<cn>1</cn><cn>2</cn>")) + "\n" +
                            arc("a", "t", text("inscription", "2")) + "\n" + arc("a", "x") +
                            "\n<colour/>")),
            (Complaints{"2:15 net-marking", "3:27 net-interval-open", "4:1 net-weight",
                        "5:1 pnml-arc", "6:1 pnml-element"}));
}

TEST(PnmlReader, SaysWhereXmlEnds) {
  EXPECT_EQ(complaints("<pnml>\n<net</pnml>"), (Complaints{"2:6 xml-malformed"}));
  EXPECT_EQ(complaints(""), (Complaints{"1:1 xml-malformed"}));
}

TEST(PnmlReader, ExpandsNoEntities) {
  EXPECT_EQ(complaints("<!DOCTYPE x [<!ENTITY a \"aaaaaaaa\">]><pnml/>"),
            (Complaints{"1:1 xml-doctype"}));
}

std::string repeated(const std::string& text, std::size_t times) {
  std::string all;
  for (std::size_t i = 0; i < times; ++i) all += text;
  return all;
}

TEST(PnmlReader, TakesPagesOfAnyDepth) {
  constexpr std::size_t depth = 300'000;
  const PetriNet net =
      read(pnml(repeated("<page>", depth) + place("a") + repeated("</page>", depth) + place("b")));
  EXPECT_EQ(net.places.size(), 2U);
}

TEST(PnmlReader, TakesUnknownElementsOfAnyDepth) {
  constexpr std::size_t depth = 300'000;
  const std::string deep = repeated("<x>", depth) + repeated("</x>", depth);
  EXPECT_EQ(complaints(pnml(deep)).size(), 1U);
  EXPECT_EQ(read(pnml("<graphics>" + deep + "</graphics>")).places.size(), 0U);
}

}  // namespace
}  // namespace tpn
