#include "core/calculator.h"

#include <charconv>
#include <stdexcept>

#include "core/notation.h"

namespace tarvelo {

std::uint32_t HexVal(std::string_view text) {
  if (text.empty()) return 0;
  std::uint32_t value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value, 16);
  if (error == std::errc::result_out_of_range) throw std::overflow_error(std::string(text) + " is too large");
  if (error != std::errc{} || end != text.data() + text.size())
    throw std::invalid_argument(std::string(text) + " is not a hexadecimal number");
  return value;
}

std::string Hex24(std::int64_t value) { return Hex(value & 0xFFFFFF); }

AddressFields FromAddr(std::int64_t address, std::int32_t corrBase) {
  const std::int64_t a = address & 0xFFFFFF;
  return {Hex24(a >> 14), Hex24(a & 0x3FFF), Hex24(a), Hex24(a - corrBase)};
}

AddressFields FromPage(std::uint32_t page, std::uint32_t offs, std::int32_t corrBase) {
  return FromAddr(std::int64_t{page} * 0x4000 + offs, corrBase);
}

AddressFields FromAdFF(std::uint32_t offset, std::int32_t corrBase) {
  return FromAddr(std::int64_t{offset} + corrBase, corrBase);
}

}  // namespace tarvelo
