// Loads ringtones from files into the places of an image's ringtones.
//
// The place of a ringtone is its data in the image (Ringtone::size); bytes behind it are never written. A
// shorter ringtone leaves the rest of its place alone, because other melodies may share it. The next search
// then finds the shorter length.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <stdexcept>

#include "core/image_edits.h"
#include "ringtones/ringtone.h"

namespace tarvelo {

// A file that cannot replace a ringtone. what() names the file and the cause.
class RefusedRingtone : public std::runtime_error {
 public:
  enum class Reason {
    OtherKind,  // not of the ringtone's form (melody, MIDI, WAVE)
    TooLong,    // longer than the place
    OddSize,    // a melody with an incomplete record
    EndsEarly,  // a melody with records behind its end
    Damaged,    // empty, or shorter than its own header states
  };

  RefusedRingtone(Reason why, const std::filesystem::path& file, std::uint64_t sizeOfFile,
                  Offset sizeOfPlace);

  const Reason reason;
  const std::filesystem::path path;
  const std::uint64_t fileSize;  // bytes
  const Offset placeSize;        // bytes
};

// The change that replaces a ringtone by a file, for ImageEdits. It has no bytes if both are empty.
//
// A melody is a file of records as SaveRingtone writes it, with or without its end record. If it is shorter
// than its place, the old melody's end record is written behind it. A MIDI or WAVE file is written unchanged;
// its own header must state its end. A file equal to the current data is always accepted.
//
// Throws RefusedRingtone, FileError, and std::out_of_range if the ringtone does not belong to this image.
[[nodiscard]] Change LoadRingtone(const Fullflash& image, const Ringtone& ringtone,
                                  const std::filesystem::path& file);

}  // namespace tarvelo
