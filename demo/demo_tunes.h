// The tunes of the demonstration phone, all long out of copyright, and the firmware's form of them.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>
#include <vector>

#include "demo/demo_notes.h"

namespace tarvelo {

struct Tune {
  std::string_view title;
  int quartersPerMinute = 0;
  std::string_view notes;  // see ParseNotes
};

extern const std::array<Tune, 14> tunes;

// The piece in the MIDI file, for two voices.
struct Duet {
  int quartersPerMinute = 0;
  std::string_view upper;
  std::string_view lower;
};

extern const Duet minuet;

// The record that ends a mono melody: one with this note, or for `silence` one without a duration.
enum class MelodyEnd : std::uint16_t { first = 0xFFFC, second = 0xFFFD, silence = 0 };

// The firmware's records: frequency in hertz and duration in milliseconds, one word each. A rest has the
// frequency 0xFFFB. With `mark`, the melody begins with the mark 0xFFFA, a record without a duration that
// does not end it.
[[nodiscard]] std::vector<std::uint8_t> Melody(const Tune& tune, MelodyEnd end, bool mark = false);

}  // namespace tarvelo
