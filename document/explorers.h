// The list of explorers: everything that this program finds in a dump.
#pragma once

#include <span>
#include <string_view>

#include "core/explorer.h"

namespace tarvelo {

// All explorers, in the order of the lists that show them.
[[nodiscard]] std::span<const Explorer* const> Explorers();

// The explorer with this key, or null.
[[nodiscard]] const Explorer* FindExplorer(std::string_view key);

// The list of an explorer's findings: the rows shown, and the record of each.
struct Listing {
  TableRows rows;
  std::vector<std::size_t> records;  // ascending, one per row; empty if every record has a row

  [[nodiscard]] std::size_t RecordOf(std::size_t row) const { return records.empty() ? row : records[row]; }
};

// With `deleted`, records of deleted things have rows too. The dump must outlive the rows; the rows keep the
// findings alive.
[[nodiscard]] Listing ListOf(const Explorer& explorer, const Dump& dump, const Findings& found, bool deleted,
                             const Messages& messages = Messages(), CellRoom room = CellRoom::Screen);

}  // namespace tarvelo
