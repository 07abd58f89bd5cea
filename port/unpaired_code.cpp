#include "port/unpaired_code.h"

#include <algorithm>

namespace tarvelo {
namespace {

constexpr int mostAsked = 64;  // places of one stretch; more are clones of each other

std::uint64_t HashOf(std::span<const UnitInstruction> stretch) {
  std::uint64_t hash = 0;
  for (const UnitInstruction& instruction : stretch.first(UnpairedCode::shortest)) {
    hash = (hash ^ instruction.token) * 0x9E3779B97F4A7C15;
    hash ^= hash >> 31;
  }
  return hash;
}

}  // namespace

UnpairedCode::UnpairedCode(const CodeUnits& units, std::span<const int> pairs) : units_(units) {
  for (std::size_t i = 0; i < units.units.size(); ++i) {
    if (pairs[i] >= 0) continue;
    const auto code = std::span(units.instructions).subspan(units.units[i].first, units.units[i].count);
    for (std::size_t k = 0; k + shortest <= code.size(); ++k)
      places_.push_back({HashOf(code.subspan(k)), static_cast<int>(i), static_cast<int>(k)});
  }
  std::ranges::sort(places_);
}

bool UnpairedCode::Any(std::span<const UnitInstruction> stretch,
                       const std::function<bool(int, int)>& take) const {
  if (stretch.size() < shortest) return false;
  const std::uint64_t hash = HashOf(stretch);
  auto place = std::ranges::lower_bound(places_, hash, {}, &Place::hash);
  for (int asked = 0; place != places_.end() && place->hash == hash && asked < mostAsked; ++place, ++asked) {
    const CodeUnit& unit = units_.units[static_cast<std::size_t>(place->unit)];
    const auto first = static_cast<std::size_t>(place->first);
    if (first + stretch.size() > unit.count) continue;
    const auto code = std::span(units_.instructions).subspan(unit.first + first, stretch.size());
    if (std::ranges::equal(stretch, code, {}, &UnitInstruction::token, &UnitInstruction::token) &&
        take(place->unit, place->first))
      return true;
  }
  return false;
}

}  // namespace tarvelo
