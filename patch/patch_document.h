// The patch document: the text of all changes that are meant for the phone, and the file that an
// external patcher applies.
//
// It is made of lines that end with CR LF, in UTF-8. A line is empty, a comment that begins with ";",
// or a change: the address of the first changed byte in the fullflash, the old bytes and the new ones,
// all in hexadecimal:
//   ;Greeting
//
//   A12344: 00FF 4869 ;text
//
//   ;********************************************************************************
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tarvelo {

// The text with CR LF at the end of each line, whichever of CR, LF, and CR LF it had.
[[nodiscard]] std::string WithCrLf(std::string_view text);

// What a named patch adds to the document: its name as a comment, its lines, a comment of asterisks.
// `body` may have several lines, parted by line ends of any kind. Control characters in the name become
// blanks.
[[nodiscard]] std::string PatchBlock(std::string_view name, std::string_view body);

// What a named piece of information adds to the information text. That text is for the screen: its lines
// end with LF alone.
[[nodiscard]] std::string InformationBlock(std::string_view name, std::string_view body);

// The patch file: four lines that say what it is for, the document, a line break. `phone` is phone and
// firmware in words; control characters in it become blanks.
[[nodiscard]] std::string PatchFile(std::string_view phone, std::string_view document);

// A line of the document, taken apart.
struct PatchLine {
  enum class Kind { Empty, Comment, Change, Invalid };

  Kind kind = Kind::Empty;
  std::uint32_t address = 0;  // of a change: where in the fullflash, and as many old bytes as new ones
  std::vector<std::uint8_t> oldBytes;
  std::vector<std::uint8_t> newBytes;
};

// Reads a line, without its end. A change has an address of 1 to 8 digits and at least one byte; its
// first character is the first digit. Blanks are spaces and tabs: some between the old bytes and the
// new ones, any number elsewhere. A line with more old than new bytes, or fewer, is invalid: nobody can
// tell what it would do to the bytes behind them.
[[nodiscard]] PatchLine ReadPatchLine(std::string_view line);

}  // namespace tarvelo
