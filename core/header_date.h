// The build date in the page of the firmware header.
#pragma once

#include <string>

#include "text/bytes.h"

namespace tarvelo {

// Looks through the 0x100 bytes of the header at `header` for a string that is a date, and one that
// is a time of day, outside the header's named fields, and joins them with " / ":
// "14.11.2002 / 10:22:31". A string is a run of printable ASCII characters that fills the space
// between other bytes. Dates are D.M.Y, Y-M-D and their like (separated by ".", "/" or "-"; years
// of two or four digits), "14 Nov 2002", "14-Nov-02" and "Nov 14 2002". Empty where there is no
// date. Never throws; what lies outside the image is not looked at.
[[nodiscard]] std::string HeaderDate(Bytes bytes, Offset header);

}  // namespace tarvelo
