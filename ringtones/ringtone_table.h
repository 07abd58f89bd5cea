// The list of ringtones as people see it.
#pragma once

#include <string>

#include "core/fullflash.h"
#include "core/table.h"
#include "resources/messages.h"
#include "ringtones/ringtone.h"

namespace tarvelo {

// The captions of the eight columns N, Note, Time, T, Offset, Size, RIT, Ringtone.
[[nodiscard]] std::vector<std::string> RingtoneCaptions(const Messages& messages);

// The list: a row a ringtone, in their order. N and T are two hexadecimal digits, Offset and RIT at least
// six; Note, Time and Size are decimal, at least 4, 6 and 5 wide. A file has "mid" or "wav" for Note.
//
// Ringtone is the text form of a melody. In an image of senseless data melodies may be as long as the
// image, and many may share it: where all the texts together would pass `roomForTexts` characters and four
// for each byte of the image, a text ends with a whole pair and "...". (DecodeMelody has no such limit.)
// The list and the image must outlive the rows.
[[nodiscard]] TableRows RingtoneRows(const RingtoneList& list, const Fullflash& image,
                                     const Messages& messages = Messages(),
                                     std::size_t roomForTexts = 0x1000000);

// The lines that the search adds to the information text: where the table lies, how many ringtones
// there are. Each is ended by a line feed. Empty where no table was found.
[[nodiscard]] std::string RingtoneInformation(const RingtoneList& list, const Messages& messages);

}  // namespace tarvelo
