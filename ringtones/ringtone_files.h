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

// STEM_NNNN with an extension (".bin") and the number in hexadecimal: the names that SaveDump gives.
[[nodiscard]] std::string NumberedFileName(std::string_view stem, int number, std::string_view extension);

// Writes `size` bytes of the image from an offset, or as many as it has, to a file in a folder, named as
// above. Creates the folder if necessary; deletes an existing file of that name first. Returns the file's
// path. Throws FileError.
std::filesystem::path SaveDump(const Fullflash& image, const std::filesystem::path& folder,
                               std::string_view stem, int number, std::string_view extension, Offset offset,
                               Offset size);

enum class RingtoneFormat {
  Raw,   // the unaltered bytes, with the extension of their format
  Midi,  // a melody is converted
  Wave,  // a melody is converted
};

// Writes one ringtone into a folder, under the name that SaveDump would give it. Returns the file's path, or
// nothing if the ringtone is a file of the other format. Throws FileError.
std::optional<std::filesystem::path> SaveRingtone(const Fullflash& image, const Ringtone& ringtone,
                                                  const std::filesystem::path& folder, std::string_view stem,
                                                  RingtoneFormat format);

// A melody as a standard MIDI file of format 0. A tick is a millisecond. Each tone becomes a note of the
// nearest semitone on a square-wave lead; a tone outside the keys becomes a rest. The file ends before the
// tone that would pass 0x0FFFFFFF ms (74 hours), the longest pause that the format can state.
[[nodiscard]] std::vector<std::uint8_t> MelodyMidi(std::span<const Tone> melody);

// A melody as a RIFF WAVE file: a square wave of half the full range, mono, 8 bits, 22050 samples per second.
// Frequencies above half of that are rests. The file ends after 10 minutes.
[[nodiscard]] std::vector<std::uint8_t> MelodyWave(std::span<const Tone> melody);

}  // namespace tarvelo
