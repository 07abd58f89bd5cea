#include "files/volume_records.h"

#include <algorithm>

#include "core/record_slot.h"
#include "files/flash_address.h"

namespace tarvelo {
namespace {

Region NameIn(Bytes image, Region header) {
  constexpr Offset nameAt = FileHeader::shortest;
  constexpr Offset wideNameAt = 20;
  constexpr Offset longestName = 512;  // longer ones are malformed
  Region name{header.offset + nameAt, header.size - nameAt};
  if (header.size > wideNameAt && DWordAt(image, name.offset) == 0xFFFFFFFF)
    name = {header.offset + wideNameAt, header.size - wideNameAt};
  name.size = std::min(name.size, longestName);
  const Bytes bytes =
      image.subspan(static_cast<std::size_t>(name.offset), static_cast<std::size_t>(name.size));
  name.size = std::ranges::find(bytes, std::uint8_t{0}) - bytes.begin();
  return name;
}

}  // namespace

Region InImage(Bytes image, const FileRecord& record) {
  const Offset size = std::ssize(image) - Offset{record.offset};
  return {record.offset, std::clamp<Offset>(size, 0, record.size)};
}

std::optional<FileHeader> ReadHeader(Bytes image, const FileRecord& record) {
  const Region bytes = InImage(image, record);
  if (record.number % 2 != 0 || bytes.size < FileHeader::shortest) return {};
  const Offset a = bytes.offset;
  if (WordAt(image, a) == 0xFFFF) return {};  // erased
  return FileHeader{.number = WordAt(image, a),
                    .parent = WordAt(image, a + 2),
                    .time = DWordAt(image, a + 4),
                    .data = WordAt(image, a + 8),
                    .attributes = WordAt(image, a + 10),
                    .next = WordAt(image, a + 14),
                    .name = NameIn(image, bytes)};
}

VolumeRecords::VolumeRecords(const Fullflash& image, const FileVolume& volume, FileList& list)
    : list_(list), firstUnit_(list.units.size()), live_(0x10000, noIndex) {
  const std::size_t first = list.records.size();
  list.volumes.push_back({.name = volume.name, .firstRecord = first});
  for (std::size_t i = 0; i < volume.units.size(); ++i)
    ReadDirectory(image.ff(), volume.units[i], static_cast<std::uint16_t>(std::min<std::size_t>(i, 0xFFFF)));
  list.volumes.back().recordCount = list.records.size() - first;
  for (std::size_t i = first; i < list.records.size(); ++i)
    if (list.records[i].state == RecordState::Deleted || list.records[i].state == RecordState::Second)
      generations_.push_back(static_cast<std::uint32_t>(i));
  std::ranges::stable_sort(generations_, {}, [&](std::uint32_t i) { return list.records[i].number; });
}

std::span<const std::uint32_t> VolumeRecords::Generations(int number) const {
  const auto numberOf = [&](std::uint32_t i) { return int{list_.records[i].number}; };
  return {std::ranges::lower_bound(generations_, number, {}, numberOf),
          std::ranges::upper_bound(generations_, number, {}, numberOf)};
}

void VolumeRecords::ReadDirectory(Bytes image, const FileUnit& unit, std::uint16_t index) {
  const auto end = static_cast<Offset>(image.size());
  const Region whole{unit.begin, std::min(unit.end, end) - unit.begin};
  Offset slot = unit.end - RecordSlot::length;
  // If the image cuts the unit off, the slots in the image are read all the same.
  if (unit.end > end)
    slot -= (unit.end - end + RecordSlot::length - 1) / RecordSlot::length * RecordSlot::length;
  const Offset last = slot + RecordSlot::length;
  for (; slot >= unit.begin + unitDataAt; slot -= RecordSlot::length) {
    const RecordSlot read = ReadSlot(image, slot);
    if (read.state == 0xFF && read.version == 0xFF) break;
    if (read.state != RecordSlot::live && read.state != RecordSlot::deleted) continue;
    Add({.offset = static_cast<std::uint32_t>(OffsetOfAddress(image, read.address)),
         .slot = static_cast<std::uint32_t>(slot),
         .size = read.size,
         .number = read.number,
         .unit = index,
         .state = read.state == RecordSlot::live ? RecordState::Live : RecordState::Deleted});
  }
  slot += RecordSlot::length;
  list_.volumes.back().size += whole.size;
  list_.units.push_back({whole, {slot, std::max<Offset>(last - slot, 0)}});
}

void VolumeRecords::Add(FileRecord record) {
  if (record.state == RecordState::Live) {
    std::uint32_t& live = live_[record.number];
    if (live == noIndex) {
      live = static_cast<std::uint32_t>(list_.records.size());
    } else {
      FileRecord& first = list_.records[live];
      const bool isCopy = first.offset == record.offset && first.size == record.size;
      record.state = isCopy ? RecordState::Copy : RecordState::Second;
      first.hasSecond |= !isCopy;
    }
  }
  list_.records.push_back(record);
}

}  // namespace tarvelo
