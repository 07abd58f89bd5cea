#include "demo/demo_eeprom_store.h"

#include <stdexcept>

namespace tarvelo {
namespace {

// The blocks of the area that are sectors, in the order in which they fill up.
constexpr std::size_t sectorBlocks[] = {0, 2, 4, 6, 9};
constexpr std::size_t dataAt = 0x40;
constexpr std::size_t headersAt = 0xC000;
constexpr int headersOfSector = 90;
// The end of the last sector is reserved for a special header.
constexpr std::size_t headersEnd = flashBlock - 2 * blockHeaderSize;

}  // namespace

std::array<std::uint8_t, blockHeaderSize> HeaderBytes(const Flash& flash, const BlockHeader& header) {
  std::array<std::uint8_t, blockHeaderSize> bytes{header.state, header.v};
  PutWord(bytes, 2, header.size);
  PutDWord(bytes, 4, flash.Address(header.data) & 0xFFFFFF);
  PutWord(bytes, 8, static_cast<std::size_t>(header.number));
  PutBytes(bytes, 10, std::array<std::uint8_t, 2>{0xFF, header.state});
  return bytes;
}

EepromStore::EepromStore(Flash& flash, Area area) : flash_(flash) {
  for (const std::size_t block : sectorBlocks) {
    const std::size_t begin = area.begin + block * flashBlock;
    sectors_.push_back({AreaWriter(flash, {begin + dataAt, begin + headersAt}),
                        AreaWriter(flash, {begin + headersAt, begin + headersEnd})});
  }
}

EepromStore::Sector& EepromStore::Current() {
  if (sectors_[current_].count == headersOfSector) ++current_;
  if (current_ == sectors_.size()) throw std::length_error("the EEPROM is full");
  return sectors_[current_];
}

void EepromStore::Write(int number, std::uint8_t v, std::span<const std::uint8_t> data) {
  WriteTo(Current().data, number, v, data);
}

void EepromStore::WriteTo(AreaWriter& place, int number, std::uint8_t v, std::span<const std::uint8_t> data) {
  const auto before = live_.find(number);
  const bool isNew = before == live_.end();
  const std::size_t old = isNew ? 0 : before->second;
  place.Align(2);
  const BlockHeader header{liveBlock, v, place.Put(data), data.size(), number};
  Sector& sector = Current();
  ++sector.count;
  live_[number] = sector.headers.Put(HeaderBytes(flash_, header));
  if (isNew) return;
  PutByte(flash_.bytes, old, deletedBlock);
  PutByte(flash_.bytes, old + blockHeaderSize - 1, deletedBlock);
}

void EepromStore::WriteInterrupted(int number, std::uint8_t v, std::span<const std::uint8_t> data) {
  live_.erase(number);
  Write(number, v, data);
}

void EepromStore::Delete(int number) {
  const std::size_t header = live_.at(number);
  PutByte(flash_.bytes, header, deletedBlock);
  PutByte(flash_.bytes, header + blockHeaderSize - 1, deletedBlock);
  live_.erase(number);
}

void EepromStore::PutRaw(std::span<const std::uint8_t> bytes, std::size_t shift) {
  AreaWriter& headers = Current().headers;
  headers.Reserve(shift);
  headers.Put(bytes);
  headers.Align(4);
}

}  // namespace tarvelo
