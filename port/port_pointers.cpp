#include "port/port_pointers.h"

#include <algorithm>
#include <optional>

#include "port/moved_pair.h"
#include "port/patched_image.h"

namespace tarvelo {
namespace {

class PointerCarrier {
 public:
  PointerCarrier(std::vector<std::uint8_t>& bytes, const PointerPlace& place, Bytes patched,
                 const Fullflash& old, const Fullflash& now, const CodePairing& pairing,
                 const CarryMaps& maps)
      : bytes_(bytes),
        region_(place.region),
        there_(place.there),
        patched_(patched),
        old_(old),
        now_(now),
        pairing_(pairing),
        maps_(maps) {}

  std::vector<Region> Run() && {
    const Offset first = std::max(old_.FirstWord(), old_.WordStart(region_.offset - 2));
    for (Offset at = first; at < region_.End() && at + 4 <= std::ssize(patched_);) at += Pass(at) ? 4 : 2;
    return std::move(failed_);
  }

 private:
  // Whether four bytes are a pointer.
  bool Pass(Offset at) {
    const std::uint32_t now = DWordAt(patched_, at);
    const std::uint32_t before = DWordAt(old_.ff(), at);
    if (now == before) return false;
    const std::uint32_t target = Paged(now);
    const std::uint32_t reversed = now >> 16 | now << 16;
    const bool farMoves = FarMoves(now);
    const bool pageMoves = PageMoves(now);
    if (FarMoves(reversed) || PageMoves(reversed) || (farMoves && pageMoves)) return Put(at, {}, 16);
    if (farMoves) return Put(at, maps_.code(now), 16);
    if (pageMoves) return Put(at, maps_.data(target), 14);
    FailLoneOffset(at);
    if (IsEntry(now)) return Put(at, maps_.code(now), 16);
    if (IsEntry(before) && IsInside(now)) return Put(at, maps_.code(now), 16);
    if (!IsPaged(now)) return false;
    const bool isOfUsedPages = IsUsedPage(before >> 16, pairing_) && IsUsedPage(now >> 16, pairing_);
    const bool wasPointer = IsPaged(before) && (isOfUsedPages || IsKnownData(Paged(before), old_, pairing_) ||
                                                HasMoved(at, before));
    if (wasPointer || IsTextAt(target, old_)) return Put(at, maps_.data(target), 14);
    return false;
  }

  bool Put(Offset at, const std::optional<std::uint32_t>& address, int bits) {
    if (!address) {
      failed_.push_back({at, 4});
      return true;
    }
    const std::uint32_t low = *address & ((1U << bits) - 1);
    const std::uint32_t all = low | *address >> bits << 16;
    // What the region leaves out of a pointer must be what the new dump has.
    bool fits = true;
    for (int i = 0; i < 4; ++i) {
      const auto byte = static_cast<std::uint8_t>(all >> 8 * i);
      const Offset there = at + i - region_.offset + there_;
      if (region_.Holds(at + i))
        bytes_[static_cast<std::size_t>(at + i - region_.offset)] = byte;
      else
        fits &= HasRegion(now_, {there, 1}) && now_.Byte(there) == byte;
    }
    if (!fits) failed_.push_back({at, 4});
    return true;
  }

  [[nodiscard]] bool IsInside(std::uint32_t address) const {
    return address <= 0xFFFFFF && HasRegion(old_, {Offset{address} - old_.CorrBase(), 1});
  }
  [[nodiscard]] bool IsEntry(std::uint32_t far) const {
    return far <= 0xFFFFFF && far != 0 && pairing_.OldUnitFrom(far) >= 0;
  }
  static std::uint32_t Paged(std::uint32_t words) { return words >> 16 << 14 | (words & 0xFFFF); }
  static bool MayBePaged(std::uint32_t words) {
    return (words & 0xFFFF) < 0x4000 && words >> 16 < 0x400 && words != 0;
  }
  [[nodiscard]] bool IsPaged(std::uint32_t words) const {
    return MayBePaged(words) && IsInside(Paged(words));
  }
  // Whether the new dump has another address in the place of these words.
  [[nodiscard]] bool HasMoved(Offset at, std::uint32_t words) const {
    const Offset there = at - region_.offset + there_;
    if (!HasRegion(now_, {there, 4})) return false;
    const std::uint32_t moved = DWordAt(now_.ff(), there);
    return moved != words && MayBePaged(moved) &&
           HasRegion(now_, {Offset{Paged(moved)} - now_.CorrBase(), 1});
  }
  [[nodiscard]] bool FarMoves(std::uint32_t words) const {
    return words <= 0xFFFFFF && maps_.areas.MovedAt(words);
  }
  [[nodiscard]] bool PageMoves(std::uint32_t words) const {
    return MayBePaged(words) && maps_.areas.MovedAt(Paged(words));
  }
  // A word alone may be an offset that moves, as in the table of a switch.
  void FailLoneOffset(Offset at) {
    const std::uint16_t word = WordAt(patched_, at);
    if (at + 1 < region_.offset) return;  // it belongs to what is in front
    if (word != WordAt(old_.ff(), at) && maps_.areas.MayBeOffset(word)) failed_.push_back({at, 2});
  }

  std::vector<std::uint8_t>& bytes_;
  Region region_;
  Offset there_;
  Bytes patched_;
  const Fullflash& old_;
  const Fullflash& now_;
  const CodePairing& pairing_;
  const CarryMaps& maps_;
  std::vector<Region> failed_;
};

}  // namespace

std::vector<Region> CarryPointers(std::vector<std::uint8_t>& bytes, const PointerPlace& place, Bytes patched,
                                  const Fullflash& old, const Fullflash& now, const CodePairing& pairing,
                                  const CarryMaps& maps) {
  return PointerCarrier(bytes, place, patched, old, now, pairing, maps).Run();
}

}  // namespace tarvelo
