#include "port/data_places.h"

#include <algorithm>
#include <array>

#include "core/byte_text.h"

namespace tarvelo {
namespace {

constexpr Offset reach = 512;      // bytes around a place that are compared
constexpr Offset lookAround = 96;  // bytes around a place that are looked up
constexpr Offset fewestAgreeing = 24;
constexpr Offset fewestVoted = 8;         // if code says where the place is
constexpr Offset longestText = 64;        // bytes on each side
constexpr Offset fewestAtEdge = 6;        // from each end of what agrees to the far end of a region
constexpr int fewestValues = 6;           // different bytes
constexpr Offset votedNear = 2048;        // bytes behind the start of an object
constexpr std::size_t mostPointers = 64;  // places that point to one function

bool Has(const Fullflash& image, Offset from, Offset size) {
  return from >= 0 && from + size <= std::ssize(image.ff());
}

}  // namespace

void DataPlaces::MakeIndexes() const {
  if (oldGrams_) return;
  oldGrams_ = std::make_unique<GramIndex>(old_.ff());
  newGrams_ = std::make_unique<GramIndex>(now_.ff());
  for (Offset at = now_.FirstWord(); Has(now_, at, 4); at += 2)
    if (const int unit = FunctionAt(now_, at, false); unit >= 0)
      pointers_.emplace_back(unit, static_cast<std::uint32_t>(at));
  std::ranges::sort(pointers_);
}

// The unit that the words offset and segment point to; -1: none.
int DataPlaces::FunctionAt(const Fullflash& image, Offset offset, bool isOld) const {
  const std::uint16_t segment = image.Word(offset + 2);
  if (segment > 0xFF || segment < image.PhoneAddress(0) >> 16) return -1;
  const std::uint32_t address = std::uint32_t{segment} << 16 | image.Word(offset);
  return isOld ? pairing_.OldUnitFrom(address) : pairing_.NewUnitFrom(address);
}

bool DataPlaces::ArePointers(Offset old, Offset now) const {
  if (!Has(old_, old, 4) || !Has(now_, now, 4)) return false;
  if (const int unit = FunctionAt(old_, old, true); unit >= 0 && pairing_.NewOf(unit) >= 0)
    if (pairing_.NewOf(unit) == FunctionAt(now_, now, false)) return true;
  // Offset and page: the same bytes stand there.
  constexpr Offset told = 8;
  const auto target = [&](const Fullflash& image, Offset at) {
    const Offset offset = image.Word(at);
    const Offset place = (Offset{image.Word(at + 2)} << 14 | offset) - image.CorrBase();
    return offset < 0x4000 && Has(image, place, told) ? place : -1;
  };
  const Offset from = target(old_, old);
  const Offset to = target(now_, now);
  if (from < 0 || to < 0) return false;
  const Bytes bytes = old_.Region(from, told);
  return std::ranges::equal(bytes, now_.Region(to, told)) && std::ranges::count(bytes, bytes[0]) < told;
}

bool DataPlaces::Agree(Offset old, Offset there, bool isOwn) const {
  const Bytes bytes = isOwn ? old_.ff() : now_.ff();
  return old_.ff()[static_cast<std::size_t>(old)] == bytes[static_cast<std::size_t>(there)];
}

// The start of pointers that agree and have the byte at `old`.
std::optional<Offset> DataPlaces::PointerAround(Offset old, Offset shift) const {
  const Offset word = old_.WordStart(old);
  if (!now_.BeginsWord(word + shift)) return {};
  for (const Offset at : {word, word - 2})
    if (ArePointers(at, at + shift)) return at;
  return {};
}

DataPlaces::Window DataPlaces::Agreeing(const Region& region, Offset there, bool isOwn) const {
  const Offset shift = there - region.offset;
  const Offset least = std::max({region.offset - reach, Offset{0}, -shift});
  const Offset end = std::min<Offset>(
      {region.End() + reach, std::ssize(old_.ff()), std::ssize(isOwn ? old_.ff() : now_.ff()) - shift});
  Window window{region.offset, region.offset};
  while (window.end < end) {
    if (Agree(window.end, window.end + shift, isOwn)) {
      ++window.end;
    } else if (const auto at = isOwn ? std::nullopt : PointerAround(window.end, shift)) {
      window.end = *at + 4;
    } else {
      break;
    }
  }
  window.isWhole = window.end >= region.End();
  if (!window.isWhole) return window;
  while (window.from > least) {
    if (Agree(window.from - 1, window.from - 1 + shift, isOwn)) {
      --window.from;
    } else if (const auto at = isOwn ? std::nullopt : PointerAround(window.from - 1, shift)) {
      window.from = *at;
    } else {
      break;
    }
  }
  return window;
}

// Places that may be that of a region: they have some of the bytes around it.
std::vector<Offset> DataPlaces::Candidates(const Region& region, bool isOwn) const {
  std::vector<Offset> candidates;
  const Offset from = std::max<Offset>(0, region.offset - lookAround);
  const Offset end = std::min({region.End() + lookAround, region.offset + 2 * lookAround,
                               std::ssize(old_.ff()) - GramIndex::size + 1});
  const Offset most = std::ssize(isOwn ? old_.ff() : now_.ff()) - region.size;
  const auto add = [&](Offset candidate) {
    if (candidate < 0 || candidate > most || (isOwn && candidate == region.offset)) return;
    candidates.push_back(candidate);
  };
  const GramIndex& grams = isOwn ? *oldGrams_ : *newGrams_;
  for (Offset at = from; at < end; ++at)
    grams.Each(old_.ff(), at, [&](Offset place) { add(place - at + region.offset); });
  for (Offset at = std::max(old_.FirstWord(), old_.WordStart(from)); !isOwn && Has(old_, at, 4) && at < end;
       at += 2) {
    const int unit = FunctionAt(old_, at, true);
    if (unit < 0 || pairing_.NewOf(unit) < 0) continue;
    const auto first = std::ranges::lower_bound(pointers_, std::pair(pairing_.NewOf(unit), 0U));
    auto last = first;
    while (last != pointers_.end() && last->first == first->first) ++last;
    if (first == pointers_.end() || first->first != pairing_.NewOf(unit)) continue;
    if (static_cast<std::size_t>(last - first) > mostPointers) continue;
    for (auto pointer = first; pointer != last; ++pointer) add(Offset{pointer->second} - at + region.offset);
  }
  std::ranges::sort(candidates);
  candidates.erase(std::unique(candidates.begin(), candidates.end()), candidates.end());
  return candidates;
}

// The place that code says the object in front of or at the region is at.
std::optional<Offset> DataPlaces::Voted(const Region& region) const {
  const auto moved = pairing_.Votes().Before({Movable::Kind::Address, old_.PhoneAddress(region.offset)});
  if (!moved || old_.PhoneAddress(region.offset) - moved->first > votedNear) return {};
  const Offset there =
      region.offset + Offset{moved->second} - moved->first + old_.CorrBase() - now_.CorrBase();
  if (!Has(now_, there, region.size)) return {};
  return there;
}

// The place of data between code that is paired.
DataPlaces::Beside DataPlaces::BesideCode(const Region& region) const {
  const auto& old = pairing_.Old().units;
  const auto& now = pairing_.New().units;
  const auto next =
      std::ranges::upper_bound(old, region.offset, {}, [](const CodeUnit& u) { return u.code.offset; });
  std::optional<Offset> before, behind;
  if (next != old.begin()) {
    const auto unit = static_cast<int>(next - old.begin()) - 1;
    const Offset end = old[static_cast<std::size_t>(unit)].code.End();
    if (const int pair = pairing_.NewOf(unit);
        pair >= 0 && region.offset >= end && region.offset - end <= votedNear)
      before = now[static_cast<std::size_t>(pair)].code.End() + region.offset - end;
  }
  if (next != old.end()) {
    const Offset start = next->code.offset;
    if (const int pair = pairing_.NewOf(static_cast<int>(next - old.begin()));
        pair >= 0 && start - region.offset <= votedNear)
      behind = now[static_cast<std::size_t>(pair)].code.offset + region.offset - start;
  }
  const auto fits = [&](const std::optional<Offset>& place) {
    return place && Has(now_, *place, region.size);
  };
  if (!fits(before) && !fits(behind)) return {};
  return {fits(before) ? before : behind, fits(before) && before == behind};
}

// A region with the rest of the text that it is in: other texts may begin or end alike.
Region DataPlaces::TextAround(const Region& region) const {
  const auto isText = [&](Offset at) { return IsPrintable(old_.ff()[static_cast<std::size_t>(at)]); };
  Region text = region;
  if (!isText(region.offset) || !isText(region.End() - 1)) return text;
  while (text.offset > 0 && region.offset - text.offset < longestText && isText(text.offset - 1))
    --text.offset;
  text.size = region.End() - text.offset;
  const Offset most = std::min<Offset>(region.End() + longestText, std::ssize(old_.ff()));
  while (text.End() < most && isText(text.End())) ++text.size;
  return text;
}

bool DataPlaces::TellsEnough(const Window& window) const {
  std::array<bool, 256> has{};
  for (const std::uint8_t byte : old_.Region(window.from, window.Size())) has[byte] = true;
  return std::ranges::count(has, true) >= fewestValues;
}

std::optional<DataPlaces::Found> DataPlaces::Find(const Region& region) const {
  MakeIndexes();
  std::vector<Offset> candidates = Candidates(region, false);
  const std::optional<Offset> voted = Voted(region);
  const Beside beside = BesideCode(region);
  for (const auto& place : {voted, beside.place})
    if (place && std::ranges::find(candidates, *place) == candidates.end()) candidates.push_back(*place);
  Window best;
  Found found;
  Offset second = 0;
  for (const Offset candidate : candidates) {
    const Window window = Agreeing(region, candidate, false);
    if (!window.isWhole) continue;
    if (window.Size() > best.Size()) {
      second = best.Size();
      best = window;
      found.offset = candidate;
    } else {
      second = std::max(second, window.Size());
    }
  }
  const bool isBeside = beside.place == found.offset;
  const bool isSure = isBeside && beside.isSure;
  const Offset fewest = voted == found.offset || isBeside ? fewestVoted : fewestAgreeing;
  if (!isSure && (best.Size() < fewest || !TellsEnough(best))) return {};
  if (best.Size() == 0) return {};
  if (const Region text = TextAround(region); best.from > text.offset || best.end < text.End()) return {};
  // At an edge of what agrees, a few bytes agree by chance.
  if (!isSure && std::min(region.End() - best.from, best.end - region.offset) < fewestAtEdge) return {};
  found.agreeing = best.Size();
  found.before = region.offset - best.from;
  found.isUnique = isSure || second * 2 <= best.Size();
  Offset other = 0;
  for (const Offset candidate : Candidates(region, true))
    if (const Window window = Agreeing(region, candidate, true); window.isWhole)
      other = std::max(other, window.Size());
  found.isUniqueInOld = isSure || other * 2 <= best.Size();
  return found;
}

}  // namespace tarvelo
