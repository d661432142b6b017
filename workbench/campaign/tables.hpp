// A collection for people, for spreadsheets and for programs.

#pragma once

#include <string>
#include <vector>

#include "workbench/campaign/collect.hpp"

namespace tpn {

const char* nameOf(Row::State state);
std::string answerWord(const Row& row);  // "reachable", "missing", ...: one word

// The table, what is not there and why, contradictions, turns, and what a split question came to.
std::string collectionText(const Collection& c);

std::string collectionCsv(const Collection& c);   // RFC 4180, with a heading
std::string collectionJson(const Collection& c);  // docs/collect.schema.json

// The parts that a page shows, too.
std::string summary(const Collection& c);  // lines
std::string text(const Turn& turn);
std::string text(const Whole& whole);  // lines

}  // namespace tpn
