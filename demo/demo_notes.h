// A small notation for tunes.
//
//   e5 f#5 bb4   a note: letter, # or b, octave (a4 is 440 Hz)
//   r            a rest
//   8            notes are eighths from here on; 8. are dotted ones, 12 those of a triplet
//   ~            lengthens the previous note by the current length
//   |            a bar line, ignored
#pragma once

#include <string_view>
#include <vector>

namespace tarvelo {

inline constexpr int ticksOfWhole = 384;
inline constexpr int rest = -1;

struct Note {
  int key = rest;  // semitones as in MIDI: 60 is middle C (c4)
  int ticks = 0;
};

// Throws std::invalid_argument if the text is not a tune.
[[nodiscard]] std::vector<Note> ParseNotes(std::string_view text);

}  // namespace tarvelo
