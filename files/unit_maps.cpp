#include "files/unit_maps.h"

#include <set>

#include "core/scan_run.h"
#include "files/flash_address.h"
#include "files/unit_name.h"

namespace tarvelo {
namespace {

constexpr Offset pointerSize = 10;
constexpr Offset groupSize = 6;
constexpr Offset itemSize = 6;
constexpr Offset unitStep = 0x1000;
constexpr std::uint16_t largeCode = 0x80;

// Words of the map pointer that have zeros, the rarest first.
constexpr Probe pointerProbes[] = {
    {.offset = 4, .value = 0, .mask = 0xFFF8},  // 1 .. 4
    {.offset = 2, .value = 0, .mask = 0xFFFF},  // upper half of the number of groups
    {.offset = 8, .value = 0, .mask = 0xF000},  // page below 0x1000
    {.offset = 0, .value = 0, .mask = 0xFF00},  // number of groups below 256
};

class MapSearch {
 public:
  MapSearch(const Fullflash& image, const SieveMarks& marks, Progress& progress)
      : image_(image.ff()),
        sieve_(unitMapPointers, marks.Of(unitMapPointers)),
        end_(static_cast<Offset>(image_.size())),
        groupsLeft_(0x10000 + end_ / 64),
        progress_(progress, 0, end_) {}

  UnitMaps Run() {
    const std::vector<std::uint32_t> pointers = FindPointers();
    for (auto pointer = pointers.rbegin(); pointer != pointers.rend() && groupsLeft_ > 0; ++pointer)
      TakeMap(*pointer);
    return std::move(found_);
  }

 private:
  enum class UnitState { Invalid, Erased, Named };

  std::vector<std::uint32_t> FindPointers() {
    std::vector<std::uint32_t> pointers;
    ScanWithProgress(image_, sieve_, 2, 0, end_ - pointerSize, progress_, [&](Offset p) {
      const std::uint8_t* const bytes = image_.data() + p;
      if (bytes[0] == 0 || bytes[4] < 1 || bytes[4] > 4) return false;
      const Offset table = PagePointerAt(image_, p + 6);
      if (table > 0 && table < end_) pointers.push_back(static_cast<std::uint32_t>(p));
      return false;
    });
    return pointers;
  }

  void TakeMap(Offset pointer) {
    const Offset table = PagePointerAt(image_, pointer + 6);
    const Offset count = ByteAt(image_, pointer);
    if (tables_.contains(table) || !IsInside(image_, table, count * groupSize)) return;
    std::vector<MappedUnit> units;
    bool isNamed = false;
    for (Offset group = table; group < table + count * groupSize; group += groupSize) {
      if (groupsLeft_-- == 0) return;
      const UnitState state = ReadGroup(group, units);
      if (state == UnitState::Invalid) return;
      isNamed |= state == UnitState::Named;
    }
    if (!isNamed) return;
    tables_.insert(table);
    if (!units.empty()) Keep(pointer, table, count, std::move(units));
  }

  // Adds the group to the units if it holds files.
  UnitState ReadGroup(Offset group, std::vector<MappedUnit>& units) const {
    const Offset item = PagePointerAt(image_, group + 2);
    if (item == 0 || !IsInside(image_, item, itemSize)) return UnitState::Invalid;
    const std::uint16_t code = WordAt(image_, item + 4);
    const Offset begin = OffsetOfAddress(image_, DWordAt(image_, item));
    if (code > largeCode || begin % unitStep != 0 || begin + unitHeaderAt + 0xE >= end_)
      return UnitState::Invalid;
    const auto name = UnitName(image_, begin);
    if (!name) return HasErasedHeader(begin) ? UnitState::Erased : UnitState::Invalid;
    const Offset size = code == largeCode ? 0x20000 : 0x10000;
    Offset count = WordAt(image_, group);
    if (count == 0 || begin + count * size > end_) count = 1;  // damaged
    if (NamesFiles(*name)) units.push_back({{begin, begin + count * size}, *name});
    return UnitState::Named;
  }

  [[nodiscard]] bool HasErasedHeader(Offset unit) const {
    return IsErased(image_.subspan(static_cast<std::size_t>(unit + unitHeaderAt), std::size_t{0xE}));
  }

  void Keep(Offset pointer, Offset table, Offset count, std::vector<MappedUnit> units) {
    found_.tables.push_back({pointer, pointerSize});
    found_.tables.push_back({table, count * groupSize});
    Region list;
    for (Offset group = table; group < table + count * groupSize; group += groupSize) {
      const Offset item = PagePointerAt(image_, group + 2);
      if (item == list.End()) {
        list.size += itemSize;
        continue;
      }
      if (list.size > 0) found_.tables.push_back(list);
      list = {item, itemSize};
    }
    found_.tables.push_back(list);
    found_.maps.push_back(std::move(units));
  }

  const Bytes image_;
  const Sieve sieve_;
  const Offset end_;
  Offset groupsLeft_;
  ProgressRun progress_;
  std::set<Offset> tables_;  // group tables of accepted maps
  UnitMaps found_;
};

}  // namespace

const SieveForm unitMapPointers{2, pointerProbes};

UnitMaps FindUnitMaps(const Fullflash& image, Progress& progress, const SieveMarks& marks) {
  return MapSearch(image, marks, progress).Run();
}

}  // namespace tarvelo
