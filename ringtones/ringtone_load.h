// Ringtones from files, for the places of those that an image has.
//
// The place of a ringtone is what its data takes in the image (Ringtone::size): nothing that lies behind
// it is ever written. A shorter ringtone leaves what it does not need of its place as it is, since other
// melodies may share it; the search finds it as short as it is then.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <stdexcept>

#include "core/image_edits.h"
#include "ringtones/ringtone.h"

namespace tarvelo {

// A file that cannot take a ringtone's place. what() names the file and the cause.
class RefusedRingtone : public std::runtime_error {
 public:
  enum class Reason {
    OtherKind,  // of melody, MIDI and WAVE file another one than the ringtone
    TooLong,    // longer than the place
    OddSize,    // a melody that does not consist of whole records
    EndsEarly,  // a melody with records behind its end
    Damaged,    // empty, or shorter than its own header tells
  };

  RefusedRingtone(Reason why, const std::filesystem::path& file, std::uint64_t sizeOfFile,
                  Offset sizeOfPlace);

  const Reason reason;
  const std::filesystem::path path;
  const std::uint64_t fileSize;  // bytes
  const Offset placeSize;        // bytes
};

// The change that puts a file in the place of a ringtone, for ImageEdits. It has no bytes where both are
// empty.
//
// A melody is a file of records as SaveRingtone writes it; its end record may be there too. Where it is
// shorter than its place, the end record of the old melody is written behind it. A MIDI or WAVE file goes
// in as it is, and has to tell its own end. What stands there already is always accepted.
//
// Throws RefusedRingtone, FileError, and std::out_of_range where the ringtone is none of this image.
[[nodiscard]] Change LoadRingtone(const Fullflash& image, const Ringtone& ringtone,
                                  const std::filesystem::path& file);

}  // namespace tarvelo
