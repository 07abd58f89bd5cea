// The list of ringtones for the user.
#pragma once

#include <string>

#include "core/fullflash.h"
#include "core/table.h"
#include "resources/messages.h"
#include "ringtones/ringtone.h"

namespace tarvelo {

// The captions of the eight columns N, Note, Time, T, Offset, Size, RIT, Ringtone.
[[nodiscard]] std::vector<std::string> RingtoneCaptions(const Messages& messages);

// The list: one row per ringtone, in the same order. N and T have two hexadecimal digits, Offset and RIT at
// least six. Note, Time and Size are decimal, at least 4, 6 and 5 wide. For a file, Note is "mid" or "wav".
//
// Ringtone is a melody's text form. In a malformed image, melodies may be as long as the image, and many may
// share the same bytes. So the texts together are limited to `roomForTexts` characters plus four for each
// byte of the image; a text that passes the limit is cut behind a whole pair and ends in "...". (DecodeMelody
// has no such limit.) The list and the image must outlive the rows.
[[nodiscard]] TableRows RingtoneRows(const RingtoneList& list, const Fullflash& image,
                                     const Messages& messages = Messages(),
                                     std::size_t roomForTexts = 0x1000000);

// The lines for the information text: the address of the table and the number of ringtones, each line ending
// in a line feed. Empty without a table.
[[nodiscard]] std::string RingtoneInformation(const RingtoneList& list, const Messages& messages);

}  // namespace tarvelo
