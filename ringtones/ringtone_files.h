// Ringtones as files in a folder.
#pragma once

#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/fullflash.h"
#include "ringtones/melody.h"
#include "ringtones/ringtone.h"

namespace tarvelo {

// STEM_NNNN with an extension (".bin"), the number in hexadecimal: how SaveDump names its files.
[[nodiscard]] std::string NumberedFileName(std::string_view stem, int number, std::string_view extension);

// Writes `size` bytes of the image from an offset, or as many of them as it has, to a file in a
// folder, named as above. The folder is made when it is missing; a file of that name is deleted first.
// Returns the file's path. Throws FileError.
std::filesystem::path SaveDump(const Fullflash& image, const std::filesystem::path& folder,
                               std::string_view stem, int number, std::string_view extension, Offset offset,
                               Offset size);

enum class RingtoneFormat {
  Raw,   // the bytes as they stand, with the extension of what they are
  Midi,  // a melody is turned into one
  Wave,  // likewise
};

// Writes one ringtone into a folder, named as SaveDump names it. Returns the file's path, or nothing
// where the ringtone is a file of the other format. Throws FileError.
std::optional<std::filesystem::path> SaveRingtone(const Fullflash& image, const Ringtone& ringtone,
                                                  const std::filesystem::path& folder, std::string_view stem,
                                                  RingtoneFormat format);

// A melody as a standard MIDI file of format 0. A tick is a millisecond; each tone is a key of its own,
// the nearest semitone, on a square-wave lead; what no key is near to is a rest. It ends before the
// tone that would pass 0x0FFFFFFF ms, 74 hours: the longest pause that such a file can state.
[[nodiscard]] std::vector<std::uint8_t> MelodyMidi(std::span<const Tone> melody);

// A melody as a RIFF WAVE file: a square wave of half the full range, mono, 8 bits, 22050 samples a
// second. Frequencies above half of that are rests. It ends after 10 minutes.
[[nodiscard]] std::vector<std::uint8_t> MelodyWave(std::span<const Tone> melody);

}  // namespace tarvelo
