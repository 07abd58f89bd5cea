#include "demo/demo_eeprom.h"

#include <array>
#include <vector>

#include "demo/demo_blocks.h"
#include "demo/demo_eeprom_store.h"

namespace tarvelo {
namespace {

constexpr int movedBlock = 284;
constexpr int interruptedBlock = 5001;
constexpr int deletedBlocks[] = {5366, 5371};
constexpr int firstBlock = 5999;  // has the store's first header
constexpr int lastBlock = 5998;   // has a header that ends with the image

using RawHeader = std::array<std::uint8_t, blockHeaderSize>;

struct Change {
  std::size_t at;
  std::uint8_t value;
};

// A header that one or two changed bytes make invalid (byte 10 is unused).
struct NearMiss {
  Change first;
  Change second;
};

constexpr NearMiss nearMisses[] = {
    {{0, 0xF8}, {11, 0xF8}},  // neither live nor deleted
    {{11, 0xF0}, {10, 0}},    // the state copy differs: power failed during deletion
    {{0, 0xF0}, {10, 0}},     // the same, the other way round
    {{1, 0x22}, {10, 0}},     // the layout version
    {{3, 0x15}, {10, 0}},     // the size
    {{7, 0x01}, {10, 0}},     // the address has more than 24 bits
    {{6, 0xF5}, {10, 0}},     // the address is in front of the store
    {{6, 0x7B}, {10, 0}},     // the address is in front of another place for blocks
    {{6, 0x80}, {10, 0}},     // the address is behind that place
    {{6, 0xBE}, {10, 0}},     // the address is in front of the old sector
    {{6, 0xC0}, {10, 0}},     // the address is behind the old sector
    {{9, 0x19}, {10, 0}},     // the number is too high for any header
    {{8, 0x00}, {9, 0x00}},   // a header, but of number 0
    {{8, 0xE8}, {9, 0x03}},   // a header of number 1000
    {{8, 0x88}, {9, 0x13}},   // a header of number 5000
    {{8, 0x70}, {9, 0x17}},   // a header of number 6000
};

void WriteAll(EepromStore& store) {
  const std::vector<int> numbers = BlockNumbers();
  for (int generation = 0; generation < 3; ++generation) {
    for (const int number : numbers) {
      if (generation >= Generations(number)) continue;
      const BlockContent block = ContentOf(number, generation);
      store.Write(number, block.v, block.data);
    }
  }
}

void WriteMoved(EepromStore& store, AreaWriter& place) {
  for (int generation = 1; generation < 3; ++generation) {
    const BlockContent block = ContentOf(movedBlock, generation);
    store.WriteTo(place, movedBlock, block.v, block.data);
  }
}

void WriteNearMisses(const Flash& flash, EepromStore& store, std::size_t data) {
  const RawHeader good = HeaderBytes(flash, {liveBlock, 1, data, 16, 5090});
  for (const NearMiss& miss : nearMisses) {
    RawHeader bad = good;
    bad[miss.first.at] = miss.first.value;
    bad[miss.second.at] = miss.second.value;
    store.PutRaw(bad);
  }
  store.PutRaw(good, 2);  // not on a multiple of 4
}

}  // namespace

void WriteEeprom(Flash& flash, Area eeprom, Area oldSector) {
  EepromStore store(flash, eeprom);
  WriteAll(store);
  AreaWriter old(flash, oldSector);
  WriteMoved(store, old);
  const BlockContent again = ContentOf(interruptedBlock, 1);
  store.WriteInterrupted(interruptedBlock, again.v, again.data);
  for (const int number : deletedBlocks) store.Delete(number);

  // The data of the store's first and last block, 16 bytes each, is in the first sector.
  const std::size_t data = eeprom.begin + 0x10;
  for (std::size_t i = 0; i < 32; ++i) PutByte(flash.bytes, data + i, static_cast<std::uint8_t>(i));
  const RawHeader first = HeaderBytes(flash, {deletedBlock, 0, data, 16, firstBlock});
  PutBytes(flash.bytes, eeprom.begin, first);
  const RawHeader last = HeaderBytes(flash, {liveBlock, 0, data + 16, 16, lastBlock});
  PutBytes(flash.bytes, eeprom.end - blockHeaderSize, last);
  WriteNearMisses(flash, store, data);
}

}  // namespace tarvelo
