// The build date in the page of the firmware header.
#pragma once

#include <string>

#include "text/bytes.h"

namespace tarvelo {

// Searches the 0x100 bytes at `header`, except the header's named fields, for a string that is a date and one
// that is a time of day. Returns both, joined by " / ": "14.11.2002 / 10:22:31". If there is no time, returns
// the date alone; if there is no date, an empty text.
//
// A string is a run of printable ASCII characters that fills the space between other bytes. Dates are D.M.Y,
// Y-M-D and similar (separated by ".", "/" or "-"; years of two or four digits), "14 Nov 2002", "14-Nov-02"
// and "Nov 14 2002". Never throws; bytes outside the image are ignored.
[[nodiscard]] std::string HeaderDate(Bytes bytes, Offset header);

}  // namespace tarvelo
