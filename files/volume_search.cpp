#include "files/volume_search.h"

#include <algorithm>
#include <limits>
#include <map>
#include <span>

#include "core/record_slot.h"
#include "files/flash_address.h"
#include "files/unit_maps.h"
#include "files/unit_name.h"

namespace tarvelo {
namespace {

constexpr Offset unitStep = 0x1000;
constexpr Offset unitSizes[] = {0x10000, 0x20000, 0x40000};
constexpr std::uint8_t otherStates[] = {0xFE, 0xF8, 0xE0, 0xC0, 0x00};  // of slots, neither live nor deleted

class HeaderSearch {
 public:
  HeaderSearch(const Fullflash& image, const SieveMarks& marks, Progress& progress)
      : image_(image.ff()),
        end_(static_cast<Offset>(image_.size())),
        maps_(FindUnitMaps(image, progress, marks)) {}

  VolumeList Run() {
    for (const std::vector<MappedUnit>& map : maps_.maps) TakeMap(map);
    FindHeaders();
    for (const auto& [name, begins] : headers_) TakeHeaders(name, begins);
    VolumeList found;
    for (auto& [name, units] : volumes_) found.volumes.push_back({name, std::move(units)});
    found.maps = std::move(maps_.tables);
    return found;
  }

 private:
  void TakeMap(std::span<const MappedUnit> map) {
    std::vector<Offset> begins;
    for (const MappedUnit& mapped : map) begins.push_back(mapped.unit.begin);
    std::ranges::sort(begins);
    for (const auto& [unit, name] : map) {
      const auto next = std::ranges::lower_bound(begins, unit.begin + unitSizes[0]);
      Take(name, {unit.begin, next == begins.end() ? unit.end : std::min(unit.end, *next)});
    }
  }

  // Adds a unit unless it begins in another one. A unit before another one ends there.
  void Take(const std::string& name, FileUnit unit) {
    const auto next = taken_.upper_bound(unit.begin);
    if (next != taken_.begin() && std::prev(next)->second > unit.begin) return;
    if (next != taken_.end()) unit.end = std::min(unit.end, next->first);
    if (unit.end - unit.begin < unitSizes[0]) return;
    taken_[unit.begin] = unit.end;
    volumes_[name].push_back(unit);
  }

  // --- by headers ---

  void FindHeaders() {
    for (Offset unit = 0; unit + unitDataAt <= end_; unit += unitStep) {
      if (!HasMarks(unit)) continue;
      const auto name = UnitName(image_, unit);
      if (!name) continue;
      allHeaders_.push_back(unit);
      if (NamesFiles(*name) && !volumes_.contains(*name)) headers_[*name].push_back(unit);
    }
  }

  [[nodiscard]] bool HasMarks(Offset unit) const {
    return WordAt(image_, unit + unitHeaderAt) == 0xFEFE &&
           WordAt(image_, unit + unitHeaderAt + 14) == 0xFEFE;
  }

  void TakeHeaders(const std::string& name, std::span<const Offset> begins) {
    const Offset size = UnitSize(begins);
    for (const Offset begin : begins) Take(name, {begin, std::min(begin + size, NextHeader(begin))});
  }

  // The next unit of any store. Headers within the smallest unit are none.
  [[nodiscard]] Offset NextHeader(Offset begin) const {
    const auto next = std::ranges::lower_bound(allHeaders_, begin + unitSizes[0]);
    return next == allHeaders_.end() ? std::numeric_limits<Offset>::max() : *next;
  }

  // The size that the units' distances allow, or a smaller one for which more record directories speak; any
  // one if there are no credible distances.
  [[nodiscard]] Offset UnitSize(std::span<const Offset> begins) const {
    const Offset distance = SmallestDistance(begins);
    Offset size = unitSizes[0];
    for (const Offset larger : unitSizes)
      if (larger <= distance) size = larger;
    const Offset largest = distance < unitSizes[0] ? unitSizes[2] : size;
    std::size_t most = Directories(begins, size);
    for (const Offset other : unitSizes)
      if (const std::size_t count = Directories(begins, other); count > most && other <= largest) {
        most = count;
        size = other;
      }
    return size;
  }

  // 0 for a single unit.
  [[nodiscard]] Offset SmallestDistance(std::span<const Offset> begins) const {
    Offset distance = begins.size() > 1 ? end_ : 0;
    for (std::size_t i = 1; i < begins.size(); ++i) distance = std::min(distance, begins[i] - begins[i - 1]);
    return distance;
  }

  // How many units of this size would end in a record directory.
  [[nodiscard]] std::size_t Directories(std::span<const Offset> begins, Offset size) const {
    return static_cast<std::size_t>(std::ranges::count_if(begins, [&](Offset begin) {
      const Offset end = begin + size;
      return end <= end_ && end <= NextHeader(begin) && IsDirectory(end);
    }));
  }

  // Whether a slot that leads into the image ends here or, behind slots that tell nothing, near here.
  [[nodiscard]] bool IsDirectory(Offset end) const {
    constexpr int mostSlots = 64;
    for (int i = 1; i <= mostSlots; ++i) {
      const RecordSlot slot = ReadSlot(image_, end - i * RecordSlot::length);
      const bool isRecord = slot.state == RecordSlot::live || slot.state == RecordSlot::deleted;
      if (isRecord && IsInside(image_, OffsetOfAddress(image_, slot.address), slot.size)) return true;
      if (!isRecord && std::ranges::find(otherStates, slot.state) == std::end(otherStates)) return false;
    }
    return false;
  }

  const Bytes image_;
  const Offset end_;
  UnitMaps maps_;
  std::map<Offset, Offset> taken_;  // begin and end of units
  std::map<std::string, std::vector<FileUnit>> volumes_;
  std::map<std::string, std::vector<Offset>> headers_;  // units by volume, in order
  std::vector<Offset> allHeaders_;                      // units of any store, in order
};

}  // namespace

VolumeList FindVolumes(const Fullflash& image, Progress& progress, const SieveMarks& marks) {
  return HeaderSearch(image, marks, progress).Run();
}

}  // namespace tarvelo
