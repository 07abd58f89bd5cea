// EEPROM blocks as an explorer.
#pragma once

#include "core/explorer.h"
#include "eeprom/block_store.h"
#include "eeprom/descriptions.h"

namespace tarvelo {

// The records of its findings.
struct EepromFindings {
  BlockStore store;
  Descriptions descriptions;  // built in, with the user's own over them
};

extern const Explorer eepromExplorer;

// A file of descriptions in the user's folder (descriptions.h); a larger one than 1 MiB is passed over.
inline constexpr char usersDescriptionsFile[] = "eeprom_blocks.tsv";

}  // namespace tarvelo
