// The list of EEPROM blocks as people see it.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "core/table.h"
#include "eeprom/block_store.h"
#include "resources/messages.h"

namespace tarvelo {

// What a block holds, by its number; empty where that is not known (descriptions.h).
using DescriptionOf = std::function<std::string(int number)>;

// The indices of the records that have a row, one a row: all, or the live ones alone. Commands find a
// row's record by it, since a cell may have lost digits.
[[nodiscard]] std::vector<std::size_t> ShownRecords(const BlockStore& store, bool showDeleted);

// The captions of the eight columns Block, Description, EIT, V, Offset, Size, i, -.
[[nodiscard]] std::vector<std::string> BlockCaptions(const Messages& messages);

// The list: a row a shown record, in their
// order. Numbers keep the rightmost digits that their column holds. Rows of deleted blocks are marked;
// on a desktop only their first two cells are coloured.
[[nodiscard]] Table ShowEE(const BlockStore& store, bool showDeleted, const DescriptionOf& description,
                           const Messages& messages = Messages());

// The lines that the scan adds to the information text: how many blocks are live, how many deleted.
// Each is ended by a line feed. Empty without a block.
[[nodiscard]] std::string BlockInformation(const BlockStore& store, const Messages& messages);

// "241 / 126", live and deleted blocks, for the status bar's fourth panel. Empty without a block.
[[nodiscard]] std::string BlockStatus(const BlockStore& store);

}  // namespace tarvelo
