#include "patch/port.h"

#include <algorithm>

#include "patch/port_operands.h"

namespace tarvelo {
namespace {

constexpr Offset erasedAround = 16;  // bytes that must be erased, too, around a change of erased ones

class Porter {
 public:
  Porter(std::span<const PatchChange> changes, const Fullflash& old, const Fullflash& now,
         const CodePairing& pairing)
      : changes_(changes), old_(old), now_(now), pairing_(pairing), places_(old, now, pairing) {}

  std::vector<PortedChange> Run() {
    std::vector<PortedChange> ported;
    for (const PatchChange& change : changes_) ported.push_back(Port(change.change));
    return ported;
  }

 private:
  static PortedChange Refused(PortRefusal refusal) {
    PortedChange refused;
    refused.refusal = refusal;
    return refused;
  }

  PortedChange Port(const Change& change) const {
    const Region region{change.offset, std::ssize(change.oldBytes)};
    if (!Has(old_, region) || !std::ranges::equal(old_.Region(region.offset, region.size), change.oldBytes))
      return Refused(PortRefusal::NotOld);
    if (IsErased(old_, region)) return InErased(change);
    const NewPlace place = places_.Find(region);
    if (place.refusal) return Refused(*place.refusal);
    const Region there{place.offset, region.size};
    if (!Has(now_, there)) return Refused(PortRefusal::NoPlace);
    return Carried(change, there, place.context);
  }

  // Code that a patch brings into an empty area stays where it is.
  PortedChange InErased(const Change& change) const {
    const Offset offset = Offset{old_.PhoneAddress(change.offset)} - now_.CorrBase();
    const Region there{offset, std::ssize(change.oldBytes)};
    if (!Has(now_, there) || !IsErased(now_, there)) return Refused(PortRefusal::NotEmpty);
    return Carried(change, there, 0);
  }

  PortedChange Carried(const Change& change, const Region& there, int context) const {
    const Bytes found = now_.Region(there.offset, there.size);
    PortedChange ported;
    ported.offset = there.offset;
    ported.oldBytes.assign(found.begin(), found.end());
    ported.newBytes = change.newBytes;
    ported.context = context;
    const int unit = pairing_.Old().UnitAt(change.offset);
    const bool isCode = unit >= 0 || IsErased(old_, {change.offset, there.size});
    if (!isCode) return ported;
    const Offset before = unit < 0 ? 0 : change.offset - StartOf(change.offset);
    const Offset end = EndOf(change.offset + there.size);
    const Region whole{change.offset - before, end - change.offset + before};
    const Region wholeThere{there.offset - before, whole.size};
    if (!Has(now_, wholeThere)) return Refused(PortRefusal::NoPlace);
    PatchedCode code = Patched(change, whole, wholeThere);
    const auto map = [&](std::uint32_t address) { return MapCode(address); };
    if (!CarryOperands(code, places_, pairing_.Votes(), map)) return Refused(PortRefusal::NoAddress);
    if (!Takes(ported, code, before)) return Refused(PortRefusal::NoAddress);
    return ported;
  }

  // Takes the carried bytes of the change; those around it must be what the new dump has.
  static bool Takes(PortedChange& ported, const PatchedCode& code, Offset before) {
    const auto first = code.bytes.begin() + before;
    const auto size = std::ssize(ported.newBytes);
    if (!std::equal(code.bytes.begin(), first, code.there.begin())) return false;
    if (!std::equal(first + size, code.bytes.end(), code.there.begin() + before + size)) return false;
    ported.newBytes.assign(first, first + size);
    return true;
  }

  PatchedCode Patched(const Change& change, const Region& whole, const Region& there) const {
    PatchedCode code;
    const Bytes before = old_.Region(whole.offset, whole.size);
    const Bytes now = now_.Region(there.offset, there.size);
    code.before.assign(before.begin(), before.end());
    code.bytes = code.before;
    std::ranges::copy(change.newBytes, code.bytes.begin() + (change.offset - whole.offset));
    code.there.assign(now.begin(), now.end());
    code.address = old_.PhoneAddress(whole.offset);
    code.newAddress = now_.PhoneAddress(there.offset);
    return code;
  }

  [[nodiscard]] Offset StartOf(Offset offset) const {
    const int instruction = pairing_.Old().InstructionAt(offset);
    return pairing_.Old().instructions[static_cast<std::size_t>(instruction)].offset;
  }

  // The end of the instruction that the byte in front of `end` belongs to.
  [[nodiscard]] Offset EndOf(Offset end) const {
    const int instruction = pairing_.Old().InstructionAt(end - 1);
    if (instruction < 0) return end;
    const Offset start = pairing_.Old().instructions[static_cast<std::size_t>(instruction)].offset;
    return std::max(end, start + Instruction::Decode(old_.ff(), start).Size());
  }

  // Addresses in erased areas are those of code that the patch brings along.
  [[nodiscard]] std::optional<std::uint32_t> MapCode(std::uint32_t address) const {
    const Offset offset = Offset{address} - old_.CorrBase();
    if (Has(old_, {offset, 2}) && IsErased(old_, {offset, 2})) return address;
    return places_.CodeAddress(address);
  }

  static bool Has(const Fullflash& image, const Region& region) {
    return region.offset >= 0 && region.End() <= std::ssize(image.ff());
  }

  // Whether a region and what surrounds it is erased.
  static bool IsErased(const Fullflash& image, const Region& region) {
    const Offset from = std::max<Offset>(0, region.offset - erasedAround);
    const Offset end = std::min<Offset>(std::ssize(image.ff()), region.End() + erasedAround);
    return std::ranges::all_of(image.Region(region.offset, region.size),
                               [](int byte) { return byte == 0xFF; }) &&
           (std::ranges::count(image.Region(from, region.offset - from), 0xFF) == region.offset - from ||
            std::ranges::count(image.Region(region.End(), end - region.End()), 0xFF) == end - region.End());
  }

  std::span<const PatchChange> changes_;
  const Fullflash& old_;
  const Fullflash& now_;
  const CodePairing& pairing_;
  PlaceFinder places_;
};

}  // namespace

std::string_view ReasonOf(PortRefusal refusal) {
  switch (refusal) {
    case PortRefusal::NotOld: return "the old bytes are not those of the old dump";
    case PortRefusal::NotUnique: return "the place is not unique in the old dump";
    case PortRefusal::NoPlace: return "there is no such place in the new dump";
    case PortRefusal::SeveralPlaces: return "there are several such places in the new dump";
    case PortRefusal::NoAddress: return "an address in the new bytes could not be carried over";
    case PortRefusal::NotEmpty: return "the new dump is not empty there";
  }
  return {};
}

std::vector<PortedChange> PortChanges(std::span<const PatchChange> changes, const Fullflash& old,
                                      const Fullflash& now, const CodePairing& pairing) {
  return Porter(changes, old, now, pairing).Run();
}

}  // namespace tarvelo
