// The ringtones of a firmware, as their table entries describe them.
//
// A ringtone index table (RIT) is an array of 8-byte entries:
//   0  ringtone number
//   1  high byte of the number, 0; if it is 8, readers skip 2 bytes
//   2  kind; a value above 15 ends the table
//   3  reserved, 0
//   4  pointer to the data (Fullflash::GetAdr)
// Kind 1 is not for the user. Kinds 6, 7 and 8 are complete files; their pointer leads to a pointer to the
// file. Every other kind is a melody for one voice (melody.h).
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "text/bytes.h"

namespace tarvelo {

enum class RingtoneForm { Melody, Midi, Wave };

struct Ringtone {
  static constexpr Offset entrySize = 8;

  std::uint8_t number = 0;
  std::uint8_t kind = 0;  // 0, 2 .. 15
  RingtoneForm form = RingtoneForm::Melody;
  Offset data = 0;        // offset of the first record or of the file; a melody may be behind the
                          // image and is then empty
  Offset entry = 0;       // offset of the table entry
  Offset size = 0;        // bytes of data, all within the image; 0 for a file that does not state it
  std::int64_t time = 0;  // milliseconds: the sum of the durations; 0 for a file that does not state it

  [[nodiscard]] bool IsFile() const { return form != RingtoneForm::Melody; }
  // The number of records of a melody; 0 for a file.
  [[nodiscard]] Offset Notes() const { return IsFile() ? 0 : size / 4; }
  // The extension of a file with the unaltered bytes: ".bin", ".mid" or ".wav".
  [[nodiscard]] std::string_view Extension() const {
    if (!IsFile()) return ".bin";
    return form == RingtoneForm::Midi ? ".mid" : ".wav";
  }
};

// All ringtones of an image, in the order of the table, at most one per number.
struct RingtoneList {
  static constexpr int startEntries = 5;  // that identify a table, with the number of the next one

  std::vector<Ringtone> ringtones;
  std::optional<Offset> table;  // offset of the RIT, if there is one
};

}  // namespace tarvelo
