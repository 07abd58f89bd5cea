#include "port/carry_names.h"

#include <algorithm>

#include "code/movable.h"
#include "core/places.h"

namespace tarvelo {
namespace {

constexpr std::uint32_t pageThree = 0xC000, endOfPageThree = 0x10000;  // where DPP3 points
constexpr Offset dataSize = 16;                                        // bytes of data that must be unique

class NameCarrier {
 public:
  explicit NameCarrier(const CodeVersions& versions)
      : versions_(versions), places_(versions.Old(), versions.New(), versions.Pairing()) {}

  CarriedName Carry(const Name& name) const {
    CarriedName carried{name.address, std::string(name.name), std::string(name.comment), 0, {}};
    const auto offset = OffsetOf(versions_.Old(), name.address);
    if (!offset)
      OutsideImage(carried);
    else if (const int unit = versions_.Pairing().OldUnitFrom(name.address); unit >= 0)
      Function(carried, unit);
    else if (versions_.Pairing().Old().UnitAt(*offset) >= 0)
      Take(carried, places_.Find({*offset, 1}));
    else
      Data(carried, *offset);
    return carried;
  }

 private:
  void Function(CarriedName& carried, int unit) const {
    if (const auto address = places_.CodeAddress(carried.oldAddress))
      carried.address = *address;
    else
      carried.refusal = versions_.Pairing().NewOf(unit) < 0 ? PortRefusal::NoPlace : PortRefusal::NotUnique;
  }

  void Data(CarriedName& carried, Offset offset) const {
    if (const auto address = places_.DataAddress(carried.oldAddress))
      carried.address = *address;
    else
      Take(carried, places_.Find({offset, std::min(dataSize, versions_.Old().ffEnd() + 1 - offset)}));
  }

  void Take(CarriedName& carried, const NewPlace& place) const {
    carried.refusal = place.refusal;
    if (!place.refusal) carried.address = versions_.New().PhoneAddress(place.offset);
  }

  void OutsideImage(CarriedName& carried) const {
    const std::uint32_t address = carried.oldAddress;
    carried.address = address;
    if (IsSpecialRegister(address)) return;
    const auto takes = [&](Movable::Kind kind) {
      const auto voted = versions_.Pairing().Votes().Voted({kind, address});
      if (voted) carried.address = *voted;
      return voted.has_value();
    };
    // Two small numbers that a function gets look like an offset in one of the first pages.
    const auto kind = address >= endOfPageThree ? Movable::Kind::Address : Movable::Kind::Near;
    if (address >= pageThree && takes(kind)) return;
    carried.refusal = PortRefusal::NoPlace;
  }

  const CodeVersions& versions_;
  PlaceFinder places_;
};

}  // namespace

std::vector<CarriedName> CarryNames(const Names& names, const CodeVersions& versions, Progress& progress) {
  const NameCarrier carrier(versions);
  std::vector<CarriedName> carried;
  ProgressRun run(progress, 0, static_cast<std::int64_t>(names.Count()));
  for (std::size_t i = 0; i < names.Count(); ++i) {
    run.At(static_cast<std::int64_t>(i));
    carried.push_back(carrier.Carry(names[i]));
  }
  return carried;
}

}  // namespace tarvelo
