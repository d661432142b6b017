// A campaign as plain values: which networks, which questions about them, who is asked, and how
// much it may cost. docs/machines.md shows the file.

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tpn {

// One bound of one transition, at several values: "reply: latest 1..8".
struct Sweep {
  std::string transition;  // a name or a number
  bool latest = true;      // or the earliest time
  std::vector<std::int64_t> values;
};

// Networks, and what is asked about each of them.
struct NetworkEntry {
  std::string file;                     // in any form; or
  std::string family;                   // one of `tpn make`, with
  std::vector<std::int64_t> sizes;      // these sizes
  std::vector<std::string> properties;  // files
  std::vector<std::string> questions;   // the text itself
  std::vector<std::string> named;       // the family's own
  std::vector<Sweep> sweeps;            // every combination of them
};

// Of one job.
struct Limits {
  std::optional<double> timeout;       // seconds
  std::optional<int> maxTransitions;   // of the bounded search
  std::optional<std::int64_t> memory;  // MB
};

struct Campaign {
  std::string title;
  std::vector<std::string> engines{"both"};  // by name: search/engines.hpp
  std::vector<std::int64_t> seeds{0};        // of the prover
  Limits limits;
  std::vector<NetworkEntry> networks;
};

// TOML, or JSON where the name ends in .json; file names in it are relative to its folder. Throws
// std::runtime_error, one line that names the file and the place, where it is not exactly that.
Campaign readCampaign(const std::string& file);

// "4", "2..20", "2..20 step 3"; nothing where it is neither or has more than a million values.
std::optional<std::vector<std::int64_t>> readRange(const std::string& text);

// "transition reply: latest 1..8"
std::optional<Sweep> readSweep(const std::string& text);

}  // namespace tpn
