// The greeting, which the phone shows when it is switched on: block 5076.
#pragma once

#include <string>

#include "core/fullflash.h"
#include "eeprom/block_store.h"

namespace tarvelo {

inline constexpr int greetingBlock = 5076;

// The model that the greeting begins with: the text (GetStr; it also ends with the live block) up to the
// first blank, in UTF-8. Empty if it has a character that is not printable, or if there is no such text.
[[nodiscard]] std::string GreetingModel(const Fullflash& image, const BlockStore& store);

}  // namespace tarvelo
