// The list of EEPROM blocks for the user.
#pragma once

#include <string>

#include "core/table.h"
#include "eeprom/block_store.h"
#include "eeprom/descriptions.h"
#include "resources/messages.h"

namespace tarvelo {

// The captions of the eight columns Block, Description, EIT, V, Offset, Size, i, -.
[[nodiscard]] std::vector<std::string> BlockCaptions(const Messages& messages);

// The list: one row per record, in the same order. Numbers keep the rightmost digits that fit their column.
// Rows of deleted blocks are marked. The store and the descriptions must outlive the rows.
[[nodiscard]] TableRows ShowEE(const BlockStore& store, const Descriptions& descriptions,
                               const Messages& messages = Messages());

// The lines for the information text: the numbers of live and of deleted blocks, each line ending in a line
// feed. Empty without blocks.
[[nodiscard]] std::string BlockInformation(const BlockStore& store, const Messages& messages);

// "241 / 126", the numbers of live and deleted blocks, for the status bar. Empty without blocks.
[[nodiscard]] std::string BlockStatus(const BlockStore& store);

}  // namespace tarvelo
