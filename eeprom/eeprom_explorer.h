// The explorer of EEPROM blocks.
#pragma once

#include "core/explorer.h"
#include "eeprom/block_store.h"
#include "eeprom/descriptions.h"

namespace tarvelo {

// The findings of this explorer.
struct EepromFindings {
  BlockStore store;
  Descriptions descriptions;  // the built-in ones, overridden by the user's
};

extern const Explorer eepromExplorer;

// The file of descriptions in the user's folder (descriptions.h). A file of more than 1 MiB is ignored.
inline constexpr char usersDescriptionsFile[] = "eeprom_blocks.tsv";

}  // namespace tarvelo
