// Finds the ringtones of a fullflash.
#pragma once

#include "core/fullflash.h"
#include "core/progress.h"
#include "ringtones/ringtone.h"

namespace tarvelo {

// Looks for the first ringtone index table of the image and lists its entries. The table is known by
// five entries numbered 0 to 4 with a 5 behind them, the numbers' high bytes and the reserved bytes 0
// and the kinds below 16; it lies at an even offset.
//
// Not listed are kind 1, entries without an address, files that begin with neither "M" nor "R", and
// what does not lie within the image; a melody at offset 0 counts as outside. Of entries of one number
// the first that can be listed is. A melody that the end of the image cuts has its whole records.
//
// Never throws on what the image holds. Works over the image once, whatever it holds.
[[nodiscard]] RingtoneList GetRingtones(const Fullflash& image, Progress& progress);

}  // namespace tarvelo
