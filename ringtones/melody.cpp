#include "ringtones/melody.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace tarvelo {
namespace {

// The value of the leading decimal digits. A number too large for any use stays too large.
std::uint32_t Number(std::string_view text) {
  constexpr std::uint32_t tooLarge = 1000000;
  std::uint32_t value = 0;
  for (const char c : text) {
    if (c < '0' || c > '9') break;
    value = std::min(value * 10 + static_cast<std::uint32_t>(c - '0'), tooLarge);
  }
  return value;
}

}  // namespace

std::vector<Tone> DecodeMelody(Bytes image, Offset data, std::size_t most) {
  std::vector<Tone> tones;
  if (data < 0) return tones;
  const Offset last = static_cast<Offset>(image.size()) - 4;
  tones.reserve(std::min<std::size_t>(most, 1024));
  for (Offset p = data; p <= last && tones.size() < most; p += 4) {
    const Tone tone{WordAt(image, p), WordAt(image, p + 2)};
    if (EndsMelody(tone.frequency, tone.duration)) break;
    tones.push_back(tone);
  }
  return tones;
}

std::string MelodyText(std::span<const Tone> tones) {
  std::string text;
  std::array<char, 64 * longestPair> buffer;
  char* const end = buffer.data() + buffer.size();
  char* p = buffer.data();
  for (const Tone& tone : tones) {
    p = std::to_chars(p, end, tone.frequency).ptr;
    *p++ = ':';
    p = std::to_chars(p, end, tone.duration).ptr;
    *p++ = ' ';
    if (end - p >= static_cast<std::ptrdiff_t>(longestPair)) continue;
    text.append(buffer.data(), p);
    p = buffer.data();
  }
  return text.append(buffer.data(), p);
}

Tone Heard(std::uint32_t frequency, std::uint32_t duration) {
  constexpr std::uint32_t highest = 65500;
  constexpr std::uint32_t longest = 10000;
  return {static_cast<std::uint16_t>(frequency > highest ? 0 : frequency),
          static_cast<std::uint16_t>(duration > longest ? 0 : duration)};
}

std::optional<Tone> NextTone(std::string_view text, std::size_t& position) {
  const std::size_t begin = std::min(text.find_first_not_of(' ', position), text.size());
  const std::size_t end = std::min(text.find(' ', begin), text.size());
  position = std::min(end + 1, text.size());
  if (begin == end) return {};
  const std::string_view pair = text.substr(begin, end - begin);
  const std::size_t colon = std::min(pair.find(':'), pair.size() - 1);
  return Heard(Number(pair), Number(pair.substr(colon + 1)));
}

std::vector<Tone> ParseMelody(std::string_view text) {
  std::vector<Tone> tones;
  std::size_t position = 0;
  while (const std::optional<Tone> tone = NextTone(text, position)) tones.push_back(*tone);
  return tones;
}

std::optional<int> KeyOf(int frequency) {
  if (frequency <= 0) return {};
  const long key = std::lround(69 + 12 * std::log2(frequency / 440.0));
  if (key < 0 || key > 127) return {};
  return static_cast<int>(key);
}

}  // namespace tarvelo
