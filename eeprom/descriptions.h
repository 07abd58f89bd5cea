// What EEPROM blocks hold, as far as it is known. The texts are the same in all languages.
//
// They are a data file, eeprom_blocks.tsv, which the build embeds. A user's own file of the same form adds to
// it or overrides it.
#pragma once

#include <map>
#include <string>
#include <string_view>

namespace tarvelo {

using Descriptions = std::map<int, std::string>;  // UTF-8, by block number

// Reads a file with one block per line: its decimal number, a tab, the text, in UTF-8. Lines that begin with
// '#', lack a tab or name no possible block (IsBlockNumber) are ignored; of two lines with the same number
// the later one counts. Control characters become blanks, blanks around a text are trimmed, bytes that are
// not UTF-8 become U+FFFD, and a text keeps its first 200 UTF-16 units. Accepts any bytes.
[[nodiscard]] Descriptions ParseDescriptions(std::string_view file);

// The built-in descriptions, overridden by those of the user's file. An empty text there removes a
// description.
[[nodiscard]] Descriptions GetDescriptions(std::string_view usersFile = {});

// The description of a number, or an empty text.
[[nodiscard]] std::string Describe(const Descriptions& descriptions, int number);

}  // namespace tarvelo
