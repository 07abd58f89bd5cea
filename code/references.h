// The places in an image that refer to one phone address: calls, jumps, data accesses, pointers.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "code/functions.h"
#include "core/fullflash.h"
#include "core/progress.h"

namespace tarvelo {

enum class ReferenceKind : std::uint8_t {
  Call,     // CALLS, CALLA, CALLR, PCALL
  Jump,     // JMPS, JMPA, JMPR, JB and its kind
  Access,   // a memory operand in the range of an EXTP or EXTS
  Pair,     // MOV register, #offset and MOV register, #page or #segment
  Pointer,  // offset and page, or offset and segment, as two words
  Data,     // a memory operand through a DPP
};

enum class ReferenceSureness : std::uint8_t { Certain, Likely, Possible };

// The names that programs read: "call", "certain".
[[nodiscard]] std::string_view NameOf(ReferenceKind kind);
[[nodiscard]] std::string_view NameOf(ReferenceSureness sure);

// Small, because an image can hold millions of them.
struct Reference {
  std::int32_t offset = 0;  // of the instruction, of the first of the two MOVs, or of the pointer
  ReferenceKind kind = ReferenceKind::Call;
  ReferenceSureness sure = ReferenceSureness::Certain;
  std::uint8_t dpp = 0;  // Data: the DPP it goes through
  // Pair: bytes from the first MOV to the second. Access and Data: bytes from the ATOMIC or EXT* in whose
  // range the instruction is, 0 if it is in none.
  std::uint8_t distance = 0;

  [[nodiscard]] bool operator==(const Reference&) const = default;
};

// The pages that the user states for DPP0 .. DPP3; nothing: unknown. DPP3 is 3 unless stated otherwise.
using DppPages = std::array<std::optional<std::uint16_t>, 4>;
[[nodiscard]] std::optional<std::uint16_t> PageOf(const DppPages& dpps, int dpp);

// The references to the byte at `target`, by offset; the merely possible ones, too. An image of more than
// 16 MiB has none. Never throws because of an image's content.
[[nodiscard]] std::vector<Reference> GetReferences(const Fullflash& image, Offset target,
                                                   const FunctionList& functions, const DppPages& dpps,
                                                   Progress& progress);

// The instruction, the two MOVs, or the pointer's words: "CALLS 80h, 6Ah", "MOV R12, #1234h; MOV R13, #204h",
// "DW 1234h, 204h". What goes through a DPP of unknown page ends with its name: "MOV R4, 1234h (DPP0)".
[[nodiscard]] std::string TextOf(const Reference& reference, const Fullflash& image);

}  // namespace tarvelo
