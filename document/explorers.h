// The list of explorers: all that this program finds in a dump.
#pragma once

#include <span>
#include <string_view>

#include "core/explorer.h"

namespace tarvelo {

// All of them, in the order in which lists of them are shown.
[[nodiscard]] std::span<const Explorer* const> Explorers();

// The explorer of a key, or null.
[[nodiscard]] const Explorer* FindExplorer(std::string_view key);

// The list of what an explorer found: the rows that are shown, and the record of each.
struct Listing {
  TableRows rows;
  std::vector<std::size_t> records;  // ascending, one a row; empty where each record has its row

  [[nodiscard]] std::size_t RecordOf(std::size_t row) const { return records.empty() ? row : records[row]; }
};

// With `deleted` the records of deleted things have rows, too. The dump must outlive the rows; they keep
// the findings.
[[nodiscard]] Listing ListOf(const Explorer& explorer, const Dump& dump, const Findings& found, bool deleted,
                             const Messages& messages = Messages(), CellRoom room = CellRoom::Screen);

}  // namespace tarvelo
