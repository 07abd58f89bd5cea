// Hand-made lists of EEPROM blocks.
#pragma once

#include <algorithm>

#include "eeprom/block_store.h"

namespace tarvelo {

// The result of a scan that found these records, but without the directory.
inline BlockStore StoreOf(std::vector<EepromBlockRecord> records) {
  BlockStore store;
  store.DeletedCount = static_cast<int>(std::ranges::count_if(records, &EepromBlockRecord::IsDeleted));
  store.records = std::move(records);
  return store;
}

}  // namespace tarvelo
