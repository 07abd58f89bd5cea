// The complete sound files among the ringtones.
#pragma once

#include <cstdint>
#include <vector>

#include "demo/demo_tunes.h"

namespace tarvelo {

// A standard MIDI file of format 1: a track with the tempo, and a track per voice.
[[nodiscard]] std::vector<std::uint8_t> MidiFile(const Duet& duet);

// A RIFF WAVE file, mono, 8 bits, 8000 samples per second: the chord of a bell that fades within one and a
// half seconds. Computed in integers only, so that it is the same on every machine.
[[nodiscard]] std::vector<std::uint8_t> BellWave();

// A melody in the text format of some phones, which is neither MIDI nor WAVE.
[[nodiscard]] std::vector<std::uint8_t> TextMelodyFile();

}  // namespace tarvelo
