// EEPROM blocks that were listed by hand.
#pragma once

#include <algorithm>

#include "eeprom/block_store.h"

namespace tarvelo {

// What a scan that found these would give to lists; without the directory.
inline BlockStore StoreOf(std::vector<EepromBlockRecord> records) {
  BlockStore store;
  store.DeletedCount = static_cast<int>(std::ranges::count_if(records, &EepromBlockRecord::IsDeleted));
  store.records = std::move(records);
  return store;
}

}  // namespace tarvelo
