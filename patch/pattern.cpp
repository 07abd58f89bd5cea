#include "patch/pattern.h"

#include <algorithm>
#include <cstring>

#include "core/byte_text.h"
#include "core/notation.h"
#include "patch/hit_search.h"
#include "resources/texts.h"
#include "text/unicode.h"

namespace tarvelo {
namespace {

// Roughly how common a byte is in flash images. The search looks for the rarest bytes first.
int Commonness(std::uint8_t byte) {
  if (byte == 0xFF) return 5;  // also erased flash
  if (byte == 0x00) return 4;
  if (byte >= 0xF0) return 3;  // registers, moves
  switch (byte) {
    case 0x01:
    case 0x02:
    case 0x08:
    case 0x0D:
    case 0x2D:
    case 0x3D:
    case 0x88:
    case 0x98:
    case 0xD7:
    case 0xDA:
    case 0xDB:
    case 0xE0:
    case 0xE6: return 2;  // frequent instructions, small numbers
    default: return 1;
  }
}

int Commonness(const Probe& probe) { return Commonness(static_cast<std::uint8_t>(probe.value)); }

}  // namespace

Pattern::Pattern(std::string_view text) {
  std::u16string digits = ToUtf16(text);
  std::erase_if(digits, [](char16_t c) { return c == u' ' || c == u','; });
  for (std::size_t i = 0; valid_ && i + 1 < digits.size(); i += 2) {
    const bool isWildcard = digits[i] == u'?' || digits[i + 1] == u'?';
    const auto high = DigitOf(digits[i]);
    const auto low = DigitOf(digits[i + 1]);
    valid_ = isWildcard || (high && low);
    hasWildcard_ = hasWildcard_ || isWildcard;
    bytes_.push_back(isWildcard || !valid_ ? std::uint8_t{0} : static_cast<std::uint8_t>(*high << 4 | *low));
    mask_.push_back(isWildcard ? 0x00 : 0xFF);
  }
  for (std::size_t i = 0; i < bytes_.size(); ++i)
    if (mask_[i] != 0) rarest_.push_back({static_cast<std::int32_t>(i), bytes_[i]});
  std::ranges::stable_sort(rarest_, {}, [](const Probe& probe) { return Commonness(probe); });
  areAll_ = rarest_.size() <= SieveProbes::count;
  if (!areAll_) rarest_.resize(SieveProbes::count);
}

// Compares eight bytes at a time: for dense hits of long patterns this must not be slower than a loop that
// stops early.
bool Pattern::MatchesAt(const std::uint8_t* at) const {
  std::size_t k = 0;
  for (std::uint64_t found, wanted, mask; k + sizeof found <= bytes_.size(); k += sizeof found) {
    std::memcpy(&found, at + k, sizeof found);
    std::memcpy(&wanted, bytes_.data() + k, sizeof wanted);
    std::memcpy(&mask, mask_.data() + k, sizeof mask);
    if ((found & mask) != wanted) return false;
  }
  for (; k < bytes_.size(); ++k)
    if ((at[k] & mask_[k]) != bytes_[k]) return false;
  return true;
}

// Calls take(start) for each match until it returns true.
template <typename Take>
void Pattern::EachMatch(Bytes bytes, Offset from, Offset last, Take take) const {
  if (!valid_ || from > last) return;
  if (rarest_.empty()) {  // only wildcards: matches everywhere
    for (Offset p = from; p <= last; ++p)
      if (take(p)) return;
    return;
  }
  const bool allCommon = rarest_.size() > 2 && Commonness(rarest_[0]) + Commonness(rarest_[1]) > 6;
  const Sieve sieve(1, rarest_, allCommon ? 3 : 2);
  if (areAll_)
    sieve.Each(bytes, from, last, take);
  else
    sieve.Each(bytes, from, last, [&](Offset p) { return MatchesAt(bytes.data() + p) && take(p); });
}

Offset Pattern::FindPat(const Fullflash& image, Offset start) const {
  if (!image.IsOpen()) return -1;
  const bool toTheEnd = start == 0 && !hasWildcard_;
  const Offset lastStart = Offset{image.ffEnd()} - PatCount() + (toTheEnd ? 1 : 0);
  Offset found = -1;
  EachMatch(image.ff(), start, lastStart, [&](Offset p) {
    found = p;
    return true;
  });
  return found;
}

void Pattern::AddMatches(Bytes bytes, Offset from, Offset last, Offset at,
                         std::vector<Offset>& matches) const {
  EachMatch(bytes, from, last, [&](Offset p) {
    matches.push_back(at + p);
    return false;
  });
}

std::vector<Offset> FindAll(const Fullflash& image, const Pattern& pattern, Progress& progress,
                            std::size_t most) {
  constexpr Offset starts = 0x100000;  // per progress step
  std::vector<Offset> all;
  const Bytes bytes = image.ff();
  const auto size = static_cast<Offset>(bytes.size());
  ProgressRun run(progress, 0, image.ffEnd());
  HitSearch search(pattern, size);
  while (!search.IsOver() && all.size() < most && !run.StopAsked()) {
    const Offset at = search.Next();
    run.At(at);
    const Offset length = std::min(starts + pattern.PatCount() - 1, size - at);
    search.Take(bytes.subspan(static_cast<std::size_t>(at), static_cast<std::size_t>(length)), at, all);
  }
  all.resize(std::min(all.size(), most));
  return all;
}

std::string HexOfBytes(Bytes bytes) {
  constexpr std::string_view digits = "0123456789ABCDEF";
  std::string text;
  text.reserve(2 * bytes.size());
  for (const std::uint8_t b : bytes) {
    text += digits[b >> 4];
    text += digits[b & 0xF];
  }
  return text;
}

std::string BytesOfHit(const Fullflash& image, const Pattern& pattern, Offset hit) {
  return HexOfBytes(
      image.ff().subspan(static_cast<std::size_t>(hit), static_cast<std::size_t>(pattern.PatCount())));
}

std::string LineOfHit(std::size_t number, Offset hit, Bytes found) {
  return DecimalColumn(number, 3) + ". " + HexColumn(hit, 6) + ": " + HexOfBytes(found);
}

std::string LineOfHit(const Fullflash& image, const Pattern& pattern, std::size_t number, Offset hit) {
  return LineOfHit(
      number, hit,
      image.ff().subspan(static_cast<std::size_t>(hit), static_cast<std::size_t>(pattern.PatCount())));
}

std::string NotFound(std::string_view pattern, const Messages& messages) {
  return messages.MsgS(Text::StringNotFound, ToUpper(pattern));
}

}  // namespace tarvelo
