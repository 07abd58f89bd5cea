// Melodies for one voice: the firmware's records, their text form, and what of them is heard.
//
// A record has 4 bytes: a note word and a duration word, little-endian. The note is a frequency in
// hertz or a marker from 0xFFFA up, the duration is in milliseconds. A melody ends before a record of
// the note 0xFFFC or 0xFFFD, and before one of duration 0 unless its note is 0xFFFA.
//
// The text form has "note:duration " for each record, in decimal, the blank behind the last one too:
// "440:500 65531:250 ".
#pragma once

#include <cstdint>
#include <limits>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "text/bytes.h"

namespace tarvelo {

struct Tone {
  std::uint16_t frequency = 0;  // Hz; of a record also a marker
  std::uint16_t duration = 0;   // ms

  bool operator==(const Tone&) const = default;
};

// Whether a record ends a melody; it is no part of it then.
[[nodiscard]] constexpr bool EndsMelody(std::uint16_t note, std::uint16_t duration) {
  return note == 0xFFFC || note == 0xFFFD || (duration == 0 && note != 0xFFFA);
}

// The records of the melody at an offset as they stand, up to its end, the last whole record of the
// image, or `most` records. An offset outside the image has none. Never throws on what the image holds.
[[nodiscard]] std::vector<Tone> DecodeMelody(Bytes image, Offset data,
                                             std::size_t most = std::numeric_limits<std::size_t>::max());

// Characters of the longest pair of a text form, with the blank behind it: "65535:65535 ".
inline constexpr std::size_t longestPair = 12;

// The text form of records.
[[nodiscard]] std::string MelodyText(std::span<const Tone> tones);

// What is heard of a record: a frequency above 65500 becomes 0, which is a rest, and a duration above
// 10000 becomes 0, so that nothing is heard.
[[nodiscard]] Tone Heard(std::uint32_t frequency, std::uint32_t duration);
[[nodiscard]] inline Tone Heard(Tone record) { return Heard(record.frequency, record.duration); }

// Reads a text form pair by pair, as it is played: gives what is heard of the pair at `position` or
// behind the blanks there, and moves `position` behind the blank that ends the pair (at most to the
// end of the text); nothing where there is no more pair. Blanks alone part pairs; the last one needs
// none behind it. Of both numbers the leading decimal digits count, none is 0, and what has no colon
// has no duration. Takes time in proportion to the pair, whatever the text.
[[nodiscard]] std::optional<Tone> NextTone(std::string_view text, std::size_t& position);

// All that is heard of a text form.
[[nodiscard]] std::vector<Tone> ParseMelody(std::string_view text);

// The semitone nearest to a frequency in hertz as a MIDI key, 69 being the a of 440 Hz. Nothing for a
// rest and for what lies outside the keys 0 .. 127, about 8 to 12900 Hz.
[[nodiscard]] std::optional<int> KeyOf(int frequency);

}  // namespace tarvelo
