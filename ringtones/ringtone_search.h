// Finds the ringtones of a fullflash.
#pragma once

#include "core/fullflash.h"
#include "core/progress.h"
#include "core/sieve_marks.h"
#include "ringtones/ringtone.h"

namespace tarvelo {

// Finds the first ringtone index table of the image and lists its entries. A table is recognized by five
// entries numbered 0 to 4, followed by a 5; the numbers' high bytes and the reserved bytes are 0, the kinds
// below 16. It begins at an even offset.
//
// The list omits kind 1, entries without an address, files that begin with neither "M" nor "R", and data
// outside the image; a melody at offset 0 counts as outside. Of several entries with the same number, the
// first one that can be listed is. If the end of the image cuts a melody off, its whole records count.
//
// Never throws because of the image's content. Passes over the image once.
[[nodiscard]] RingtoneList GetRingtones(const Fullflash& image, Progress& progress,
                                        const SieveMarks& marks = {});

// The sieve for the table.
extern const SieveForm ringtoneTables;

}  // namespace tarvelo
