// The length of a sound file inside an image. Only the file's own header states it.
//
//   RIFF WAVE  "RIFF", size of the rest (double word, little-endian), "WAVE", chunks. A chunk is a name of
//              4 letters, a size, and that many bytes, padded to an even number. "fmt " has the bytes
//              per second at 8; "data" holds the samples.
//   MIDI       "MThd", size 6 (double word, big-endian), then the words format, number of tracks and
//              division; then for each track "MTrk", size, events.
#pragma once

#include <cstdint>

#include "text/bytes.h"

namespace tarvelo {

struct FileLength {
  Offset size = 0;        // bytes, never more than there are; 0 without a header
  std::int64_t time = 0;  // rounded to milliseconds; 0 if the file does not state it
};

// Both functions take the bytes from the file's first byte to the end of the image. They count only bytes
// inside and never throw because of the content.

// The size is the stated one plus 8. The time is that of the data at the stated bytes per second; only the
// first 1000 chunks are examined.
[[nodiscard]] FileLength LengthOfWave(Bytes file);

// The size runs to the end of the last track; a chunk that is not a track ends the file. The time is that of
// the longest track, or the sum of all tracks in a file of format 2. A track is followed to its end event, or
// as far as its events are readable. A file of more than 1 MiB is not timed: no ringtone is that large, and
// malformed data may hold hundreds of overlapping files.
[[nodiscard]] FileLength LengthOfMidi(Bytes file);

}  // namespace tarvelo
