#include "files/volume_search.h"

#include <algorithm>
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
      if (!name || !NamesFiles(*name) || volumes_.contains(*name)) continue;
      headers_[*name].push_back(unit);
      allHeaders_.push_back(unit);
    }
  }

  [[nodiscard]] bool HasMarks(Offset unit) const {
    return WordAt(image_, unit + unitHeaderAt) == 0xFEFE &&
           WordAt(image_, unit + unitHeaderAt + 14) == 0xFEFE;
  }

  void TakeHeaders(const std::string& name, std::span<const Offset> begins) {
    const Offset size = UnitSize(begins);
    for (const Offset begin : begins) Take(name, {begin, begin + size});
  }

  // The size that the distances allow, unless more record directories speak for another one.
  [[nodiscard]] Offset UnitSize(std::span<const Offset> begins) const {
    Offset size = unitSizes[0];
    if (begins.size() > 1) {
      Offset distance = end_;
      for (std::size_t i = 1; i < begins.size(); ++i)
        distance = std::min(distance, begins[i] - begins[i - 1]);
      for (const Offset larger : unitSizes)
        if (larger <= distance) size = larger;
    }
    std::size_t most = Directories(begins, size);
    for (const Offset other : unitSizes)
      if (const std::size_t count = Directories(begins, other); count > most) {
        most = count;
        size = other;
      }
    return size;
  }

  // How many units of this size would end in a written slot.
  [[nodiscard]] std::size_t Directories(std::span<const Offset> begins, Offset size) const {
    return static_cast<std::size_t>(std::ranges::count_if(begins, [&](Offset begin) {
      const Offset end = begin + size;
      const auto next = std::ranges::upper_bound(allHeaders_, begin);
      if (end > end_ || (next != allHeaders_.end() && *next < end)) return false;
      const RecordSlot slot = ReadSlot(image_, end - RecordSlot::length);
      const bool isState = slot.state == RecordSlot::live || slot.state == RecordSlot::deleted;
      return isState && IsInside(image_, OffsetOfAddress(image_, slot.address), slot.size);
    }));
  }

  const Bytes image_;
  const Offset end_;
  UnitMaps maps_;
  std::map<Offset, Offset> taken_;  // begin and end of units
  std::map<std::string, std::vector<FileUnit>> volumes_;
  std::map<std::string, std::vector<Offset>> headers_;  // units by volume, in order
  std::vector<Offset> allHeaders_;
};

}  // namespace

VolumeList FindVolumes(const Fullflash& image, Progress& progress, const SieveMarks& marks) {
  return HeaderSearch(image, marks, progress).Run();
}

}  // namespace tarvelo
