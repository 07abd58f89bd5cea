// A small notation for tunes.
//
//   e5 f#5 bb4   a note: letter, # or b, octave (a4 is 440 Hz)
//   r            a rest
//   8            from here on notes are eighths; 8. makes them dotted ones. 12 is a triplet's
//   eighth. ~            the note before lasts longer by the present length |            a bar
//   line, for the reader only
#pragma once

#include <string_view>
#include <vector>

namespace tarvelo {

inline constexpr int ticksOfWhole = 384;
inline constexpr int rest = -1;

struct Note {
  int key = rest;  // semitones, 60 is middle C (c4), as MIDI counts them
  int ticks = 0;
};

// Throws std::invalid_argument where the text is no tune.
[[nodiscard]] std::vector<Note> ParseNotes(std::string_view text);

}  // namespace tarvelo
