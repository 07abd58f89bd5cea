#include "demo/demo_eeprom_store.h"

#include <stdexcept>

namespace tarvelo {
namespace {

// Blocks of the region that are sectors, in the order in which they fill up.
constexpr std::size_t sectorBlocks[] = {0, 2, 4, 6, 9};
constexpr std::size_t dataAt = 0x40;
constexpr std::size_t headersAt = 0xC000;
constexpr int headersOfSector = 90;
// The end of the last sector is left to a header of its own.
constexpr std::size_t headersEnd = flashBlock - 2 * blockHeaderSize;

std::uint8_t ByteOf(std::size_t value, int index) { return static_cast<std::uint8_t>(value >> 8 * index); }

}  // namespace

std::array<std::uint8_t, blockHeaderSize> HeaderBytes(const ImageBuilder& image, const BlockHeader& header) {
  const std::uint32_t address = image.Address(header.data);
  const auto number = static_cast<std::size_t>(header.number);
  return {header.state,
          header.v,
          ByteOf(header.size, 0),
          ByteOf(header.size, 1),
          ByteOf(address, 0),
          ByteOf(address, 1),
          ByteOf(address, 2),
          0,
          ByteOf(number, 0),
          ByteOf(number, 1),
          0xFF,
          header.state};
}

EepromStore::EepromStore(ImageBuilder& image, Region region) : image_(image) {
  for (const std::size_t block : sectorBlocks) {
    const std::size_t begin = region.begin + block * flashBlock;
    sectors_.push_back({RegionWriter(image, {begin + dataAt, begin + headersAt}),
                        RegionWriter(image, {begin + headersAt, begin + headersEnd})});
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

void EepromStore::WriteTo(RegionWriter& place, int number, std::uint8_t v,
                          std::span<const std::uint8_t> data) {
  const auto before = live_.find(number);
  const bool isNew = before == live_.end();
  const std::size_t old = isNew ? 0 : before->second;
  place.Align(2);
  const BlockHeader header{liveBlock, v, place.Put(data), data.size(), number};
  Sector& sector = Current();
  ++sector.count;
  live_[number] = sector.headers.Put(HeaderBytes(image_, header));
  if (isNew) return;
  image_.Byte(old, deletedBlock);
  image_.Byte(old + blockHeaderSize - 1, deletedBlock);
}

void EepromStore::WriteInterrupted(int number, std::uint8_t v, std::span<const std::uint8_t> data) {
  live_.erase(number);
  Write(number, v, data);
}

void EepromStore::Delete(int number) {
  const std::size_t header = live_.at(number);
  image_.Byte(header, deletedBlock);
  image_.Byte(header + blockHeaderSize - 1, deletedBlock);
  live_.erase(number);
}

void EepromStore::PutRaw(std::span<const std::uint8_t> bytes, std::size_t shift) {
  RegionWriter& headers = Current().headers;
  headers.Reserve(shift);
  headers.Put(bytes);
  headers.Align(4);
}

}  // namespace tarvelo
