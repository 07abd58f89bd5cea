// What lies at a place, in words: the chain of everything that is known about it, from the outermost thing to
// the innermost. Uses only findings that are known already.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/explorer.h"

namespace tarvelo {

class Document;

struct KnownThing {
  std::string what;  // "picture 12", "EEPROM 5076 (header)", "CALLS 80h, 6Ah"
  Region region;
  const Explorer* explorer = nullptr;      // whose list has it,
  std::optional<std::size_t> record = {};  // as this record; or null and none
  bool isName = false;                     // the user's own name for the place
};

// The offset must be within the image.
[[nodiscard]] std::vector<KnownThing> WhatLiesAt(const Document& document, Offset offset,
                                                 const Messages& messages);

// The same in one line, without the user's name: "Files (unit header) > file 12". Empty if nothing is known.
[[nodiscard]] std::string WhatLiesText(const Document& document, Offset offset, const Messages& messages);

// The explorers that have not searched the current image yet.
[[nodiscard]] std::vector<const Explorer*> NotSearchedYet(const Document& document);

}  // namespace tarvelo
