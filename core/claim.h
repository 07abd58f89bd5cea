// A claim on bytes of an image: an explorer's statement of what they are.
//
// Each explorer has its own kinds of claims, constant objects that live as long as the program. The dump map
// (document/dump_map.h) decides which claim determines a byte's label.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string_view>

#include "core/region.h"
#include "resources/texts.h"

namespace tarvelo {

enum class Sureness : std::uint8_t {
  Certain,  // a structure states it
  Likely,   // it may have been overwritten, or belong to something else
  Guessed,  // it looks like it
  Unknown,
};

// Kinds of claims that share a colour and a name: "EEPROM", "picture".
struct ClaimGroup {
  Text name;
  std::optional<Text> part;  // in brackets behind the name: "EEPROM (deleted)"
  std::uint32_t colour;      // 0xRRGGBB
};

struct ClaimKind {
  std::string_view key;      // for programs: "eeprom-header"; never translated
  Text name;                 // what the bytes belong to; the number follows it
  std::optional<Text> part;  // which part of it they are
  // If claims on a byte are equally sure, the one with the lower rank wins.
  int rank;
  const ClaimGroup* group;
  bool isNumberHex = false;  // the number is written as two hexadecimal digits
};

struct Claim {
  Offset offset = 0;
  Offset size = 0;
  const ClaimKind* kind = nullptr;
  Sureness sure = Sureness::Unknown;
  int number = -1;     // as the list of such things shows it; -1: none
  Offset source = -1;  // offset of the header or table entry that states it; -1: none

  [[nodiscard]] Offset End() const { return offset + size; }
  [[nodiscard]] bool operator==(const Claim&) const = default;
};

// Receives an explorer's claims, which may be partly or wholly outside the image.
using TakeClaim = std::function<void(const Claim&)>;

}  // namespace tarvelo
