// Why a goal is never reached, on a page: the sentences that say most in fewest words; the others
// are folded away, and of very many some are left to the certificate.

#include <algorithm>

#include "workbench/views/page/html.hpp"
#include "workbench/views/page/invariantwords.hpp"
#include "workbench/views/page/parts.hpp"
#include "workbench/views/viewparts.hpp"

namespace tpn {

namespace {

constexpr std::size_t mostOpen = 12;
constexpr std::size_t mostFolded = 2000;

std::string list(const std::vector<std::string>& sentences, std::size_t from, std::size_t to) {
  std::string items;
  for (std::size_t i = from; i < to; ++i) items += element("li", xmlText(sentences[i]));
  return items.empty() ? "" : element("ul", "\n" + items);
}

std::string sentences(const std::vector<std::string>& all) {
  const std::size_t open = std::min(all.size(), mostOpen);
  const std::size_t shown = std::min(all.size(), open + mostFolded);
  std::string html = list(all, 0, open);
  if (open < shown) html += folded(std::to_string(shown - open) + " more", list(all, open, shown));
  if (shown < all.size())
    html += element("p", "And " + std::to_string(all.size() - shown) +
                             " more, which <code>--certificate FILE</code> writes down.");
  return html;
}

}  // namespace

std::string invariantPart(const Network& net, const Certificate& certificate) {
  const InvariantWords words = inWords(net, certificate);
  std::string html = element("p",
                             "All of this is so at the start; every step and every delay keeps it "
                             "so; and no state where all of it is so is one that was asked for.");
  html += sentences(words.sums) + sentences(words.clauses);
  if (words.sums.empty() && words.clauses.empty())
    html += element("p",
                    "It takes no more than this: every process is in one location at a time, and "
                    "what a location's name says is so there.");
  if (!words.exchanges.empty())
    html += element("p",
                    "The network is the same after each of these exchanges; what is said above is "
                    "said of all that they lead to, one after the other, as often as one likes:") +
            sentences(words.exchanges);
  return section("invariant", "Why it is never reached", html);
}

}  // namespace tpn
