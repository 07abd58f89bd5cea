// The arithmetic of the address calculator: page and offset, phone address, offset in the fullflash.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tarvelo {

// Reads a hexadecimal number; an empty text is 0. Throws std::invalid_argument for anything but digits and
// std::overflow_error above 32 bits.
[[nodiscard]] std::uint32_t HexVal(std::string_view text);

// The low 24 bits in upper-case hexadecimal, without leading zeros.
[[nodiscard]] std::string Hex24(std::int64_t value);

// The calculator's four linked fields. All follow from the low 24 bits of one phone address.
struct AddressFields {
  std::string Page;  // 16 KiB pages
  std::string Offs;  // offset within the page, 0 .. 3FFF
  std::string Addr;  // phone address
  std::string AdFF;  // offset in the fullflash: Addr - corrected base
};

// From a phone address, from a page and an offset (which carries into the page above 3FFF), or from an offset
// in the fullflash.
[[nodiscard]] AddressFields FromAddr(std::int64_t address, std::int32_t corrBase);
[[nodiscard]] AddressFields FromPage(std::uint32_t page, std::uint32_t offs, std::int32_t corrBase);
[[nodiscard]] AddressFields FromAdFF(std::uint32_t offset, std::int32_t corrBase);

}  // namespace tarvelo
