// Melodies for one voice: the firmware's records, their text form, and the tones that are heard.
//
// A record has 4 bytes: a note word and a duration word, little-endian. The note is a frequency in hertz, or
// a marker from 0xFFFA up; the duration is in milliseconds. A melody ends before a record with the note
// 0xFFFC or 0xFFFD, and before one with the duration 0 unless its note is 0xFFFA.
//
// The text form has "note:duration " for each record, in decimal, with a blank also behind the last one:
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
  static constexpr Offset recordSize = 4;

  std::uint16_t frequency = 0;  // Hz; in a record possibly a marker
  std::uint16_t duration = 0;   // ms

  bool operator==(const Tone&) const = default;
};

// Whether a record ends a melody. That record is not part of the melody.
[[nodiscard]] constexpr bool EndsMelody(std::uint16_t note, std::uint16_t duration) {
  return note == 0xFFFC || note == 0xFFFD || (duration == 0 && note != 0xFFFA);
}

// The records of the melody at an offset, unchanged, up to its end, the last whole record of the image, or
// `most` records. Empty if the offset is outside the image. Never throws because of the image's content.
[[nodiscard]] std::vector<Tone> DecodeMelody(Bytes image, Offset data,
                                             std::size_t most = std::numeric_limits<std::size_t>::max());

// The length of the longest pair in a text form, including its blank: "65535:65535 ".
inline constexpr std::size_t longestPair = 12;

[[nodiscard]] std::string MelodyText(std::span<const Tone> tones);

// The tone heard for a record. A frequency above 65500 becomes 0, a rest; a duration above 10000 becomes 0,
// so that nothing is heard.
[[nodiscard]] Tone Heard(std::uint32_t frequency, std::uint32_t duration);
[[nodiscard]] inline Tone Heard(Tone record) { return Heard(record.frequency, record.duration); }

// Reads the next pair of a text form: skips blanks from `position`, returns the tone heard for the pair, and
// moves `position` behind the blank that ends the pair, or to the end of the text. Returns nothing if there
// are no more pairs. Only blanks separate pairs, and the last pair needs none behind it. Of both numbers only
// the leading decimal digits count; no digits give 0, and a pair without a colon has no duration. The time is
// proportional to the length of the pair.
[[nodiscard]] std::optional<Tone> NextTone(std::string_view text, std::size_t& position);

// All tones heard for a text form.
[[nodiscard]] std::vector<Tone> ParseMelody(std::string_view text);

// The semitone nearest to a frequency in hertz, as a MIDI key; 69 is the a of 440 Hz. Nothing for a rest or a
// frequency outside the keys 0 .. 127, about 8 to 12900 Hz.
[[nodiscard]] std::optional<int> KeyOf(int frequency);

}  // namespace tarvelo
