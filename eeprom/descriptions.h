// What EEPROM blocks hold, as far as it is known: one text for all languages.
//
// The texts are a data file, eeprom_blocks.tsv, embedded when the program is built. A user's own file
// of the same form adds to it or overrides it.
#pragma once

#include <map>
#include <string>
#include <string_view>

namespace tarvelo {

using Descriptions = std::map<int, std::string>;  // UTF-8, by block number

// Reads a file: a line a block, its number in decimal, a tab, the text, in UTF-8. Lines that begin with
// '#', have no tab or name no possible block (IsBlockNumber) say nothing; of two with one number the
// later counts. Control characters become blanks, blanks around a text fall away, bytes that are no
// UTF-8 become U+FFFD, and a text keeps its first 200 UTF-16 units. Survives whatever the file holds.
[[nodiscard]] Descriptions ParseDescriptions(std::string_view file);

// The built-in descriptions with those of the user's file over them, an empty text included: it takes a
// description away.
[[nodiscard]] Descriptions GetDescriptions(std::string_view usersFile = {});

// The text of a number, empty where there is none.
[[nodiscard]] std::string Describe(const Descriptions& descriptions, int number);

}  // namespace tarvelo
