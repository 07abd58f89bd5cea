// How long a sound file is that begins somewhere in an image: only its own header tells.
//
//   RIFF WAVE  "RIFF", size of what follows (double word, little-endian), "WAVE", chunks. A chunk is a
//              name of 4 letters, a size and as many bytes, an even number with the filling. "fmt "
//              holds the bytes a second at 8; "data" holds the samples.
//   MIDI       "MThd", size 6 (double word, big-endian), format, number of tracks and division words;
//              then as many "MTrk", size, events.
#pragma once

#include <cstdint>

#include "text/bytes.h"

namespace tarvelo {

struct FileLength {
  Offset size = 0;        // bytes, never more than there are; 0 where there is no such header
  std::int64_t time = 0;  // milliseconds to the nearest; 0 where the file does not tell
};

// Both take the bytes from the file's first one to the end of the image, never throw on what they
// hold, and count only what lies within them.

// The size is the stated one and 8. The time is that of the data at the stated bytes a second; the
// first 1000 chunks are looked at.
[[nodiscard]] FileLength LengthOfWave(Bytes file);

// The size is up to the end of the last track; a chunk that is no track ends the file. The time is that
// of the longest track, or of all one after another in a file of format 2. A track is followed up to
// its end event or as far as its events can be read. A file of more than 1 MiB is not timed: no ringtone
// is as large, and senseless data may hold hundreds of overlapping ones.
[[nodiscard]] FileLength LengthOfMidi(Bytes file);

}  // namespace tarvelo
