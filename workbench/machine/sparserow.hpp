// Sparse rows of exact whole numbers, as Gaussian elimination and its like need them.

#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

namespace tpn {

// (column, entry), by column, ascending; no entry is 0.
using SparseRow = std::vector<std::pair<std::size_t, std::int64_t>>;

std::int64_t entry(const SparseRow& row, std::size_t column);  // 0 where there is none

// The smallest whole multiple of a combination of the two rows that is 0 in the column, where `row`
// is not forgotten: its factor is not 0. `other` has an entry there. Divided by what its entries
// have in common; nothing where an entry does not fit 64 bits.
std::optional<SparseRow> cleared(const SparseRow& row, const SparseRow& other, std::size_t column);

}  // namespace tpn
