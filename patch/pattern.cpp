#include "patch/pattern.h"

#include <algorithm>
#include <cstring>

#include "core/notation.h"
#include "text/unicode.h"

namespace tarvelo {
namespace {

// The value of a hexadecimal digit, or -1.
int Digit(char16_t c) {
  if (c >= u'0' && c <= u'9') return c - u'0';
  if (c >= u'A' && c <= u'F') return c - u'A' + 10;
  if (c >= u'a' && c <= u'f') return c - u'a' + 10;
  return -1;
}

// How common a byte is in flash images, roughly: the search looks for the rarest first.
int Commonness(std::uint8_t byte) {
  switch (byte) {
    case 0xFF: return 4;
    case 0x00: return 3;
    case 0xE6:
    case 0xF4:
    case 0xD7:
    case 0xDA: return 2;  // frequent instructions
    default: return 1;
  }
}

}  // namespace

Pattern::Pattern(std::string_view text) {
  std::u16string digits = ToUtf16(text);
  std::erase_if(digits, [](char16_t c) { return c == u' ' || c == u','; });
  for (std::size_t i = 0; valid_ && i + 1 < digits.size(); i += 2) {
    const bool isWildcard = digits[i] == u'?' || digits[i + 1] == u'?';
    const int high = Digit(digits[i]);
    const int low = Digit(digits[i + 1]);
    valid_ = isWildcard || (high >= 0 && low >= 0);
    hasWildcard_ = hasWildcard_ || isWildcard;
    bytes_.push_back(isWildcard ? std::uint8_t{0} : static_cast<std::uint8_t>(high << 4 | low));
    mask_.push_back(isWildcard ? 0x00 : 0xFF);
  }
  for (std::size_t i = 0; i < bytes_.size(); ++i)
    if (mask_[i] != 0 && (!hasAnchor_ || Commonness(bytes_[i]) < Commonness(bytes_[anchor_]))) {
      anchor_ = i;
      hasAnchor_ = true;
    }
}

bool Pattern::MatchesAt(const std::uint8_t* at) const {
  if (!hasWildcard_) return std::memcmp(at, bytes_.data(), bytes_.size()) == 0;
  for (std::size_t k = 0; k < bytes_.size(); ++k)
    if ((at[k] & mask_[k]) != bytes_[k]) return false;
  return true;
}

// The first match at start .. lastStart. The caller has made sure that all of these lie in the image.
Offset Pattern::FindWithin(Bytes image, Offset start, Offset lastStart) const {
  if (start > lastStart) return -1;
  if (!hasAnchor_) return start;  // wildcards alone match everywhere
  for (Offset p = start; p <= lastStart; ++p) {
    const std::uint8_t* from = image.data() + p + anchor_;
    const void* found = std::memchr(from, bytes_[anchor_], static_cast<std::size_t>(lastStart - p + 1));
    if (!found) return -1;
    p += static_cast<const std::uint8_t*>(found) - from;
    if (MatchesAt(image.data() + p)) return p;
  }
  return -1;
}

Offset Pattern::FindPat(const Fullflash& image, Offset start) const {
  if (!valid_) return -1;
  const bool toTheEnd = start == 0 && !hasWildcard_;
  const Offset lastStart = Offset{image.ffEnd()} - PatCount() + (toTheEnd ? 1 : 0);
  return FindWithin(image.ff(), start, lastStart);
}

std::vector<Offset> FindAll(const Fullflash& image, const Pattern& pattern, Progress& progress) {
  std::vector<Offset> hits;
  ProgressRun run(progress, 0, image.ffEnd());
  for (Offset hit = pattern.FindPat(image, 0); hit >= 1; hit = pattern.FindPat(image, hit + 1)) {
    hits.push_back(hit);
    run.At(hit);
    if (run.StopAsked()) break;
  }
  return hits;
}

std::string BytesOfHit(const Fullflash& image, const Pattern& pattern, Offset hit) {
  std::string text;
  for (Offset p = hit; p < hit + pattern.PatCount(); ++p) text += image.ByteHex(p);
  return text;
}

std::string LineOfHit(const Fullflash& image, const Pattern& pattern, std::size_t number, Offset hit) {
  return PadSpace(std::to_string(number), 3) + ". " + PadZero(Hex(static_cast<std::uint32_t>(hit)), 6) +
         ": " + BytesOfHit(image, pattern, hit);
}

std::string NotFound(std::string_view pattern, const Messages& messages) {
  return messages.MsgS(35, ToUpper(pattern));
}

}  // namespace tarvelo
