// Melodies and sounds among the files of the phone.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "ringtones/melody.h"

namespace tarvelo {

// The melody that a file is: records (melody.h) up to the end of the file or to an end record there, or their
// text form. Empty for other files.
[[nodiscard]] std::vector<Tone> ReadMelody(Bytes file);

// A sound file that other programs play.
struct SoundFile {
  std::string_view format;
  std::int64_t time = 0;  // ms; 0: not stated
};
[[nodiscard]] std::optional<SoundFile> ReadSound(Bytes file);

}  // namespace tarvelo
