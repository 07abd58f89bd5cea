// The list of EEPROM blocks as people see it.
#pragma once

#include <string>

#include "core/table.h"
#include "eeprom/block_store.h"
#include "eeprom/descriptions.h"
#include "resources/messages.h"

namespace tarvelo {

// The captions of the eight columns Block, Description, EIT, V, Offset, Size, i, -.
[[nodiscard]] std::vector<std::string> BlockCaptions(const Messages& messages);

// The list: a row a record, in their order. Numbers keep the rightmost digits that their column holds. Rows
// of deleted blocks are marked. The store and the descriptions must outlive the rows.
[[nodiscard]] TableRows ShowEE(const BlockStore& store, const Descriptions& descriptions,
                               const Messages& messages = Messages());

// The lines that the scan adds to the information text: how many blocks are live, how many deleted.
// Each is ended by a line feed. Empty without a block.
[[nodiscard]] std::string BlockInformation(const BlockStore& store, const Messages& messages);

// "241 / 126", live and deleted blocks, for the status bar. Empty without a block.
[[nodiscard]] std::string BlockStatus(const BlockStore& store);

}  // namespace tarvelo
