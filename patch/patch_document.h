// The patch document: the text of all changes for the phone, and the file that an external patcher applies.
//
// Its lines end with CR LF and are in UTF-8. A line is empty, a comment that begins with ";", or a change:
// the offset of the first changed byte in the fullflash, the old bytes and the new bytes, all in hexadecimal:
//   ;Greeting
//
//   A12344: 00FF 4869 ;text
//
//   ;********************************************************************************
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvelo {

// The text with each line end (CR, LF or CR LF) replaced by CR LF.
[[nodiscard]] std::string WithCrLf(std::string_view text);

// The text that a named patch adds to the document: its name as a comment, its lines, a comment of asterisks.
// `body` may have several lines with line ends of any kind. Control characters in the name become blanks.
[[nodiscard]] std::string PatchBlock(std::string_view name, std::string_view body);

// The text that named information adds to the information text. That text is for the screen: its lines end
// with LF alone.
[[nodiscard]] std::string InformationBlock(std::string_view name, std::string_view body);

// The patch file: four introductory lines, the document, a line break. `phone` names the phone and firmware;
// control characters in it become blanks.
[[nodiscard]] std::string PatchFile(std::string_view phone, std::string_view document);

// A parsed line of the document.
struct PatchLine {
  enum class Kind { Empty, Comment, Change, Invalid };

  Kind kind = Kind::Empty;
  std::uint32_t address = 0;  // of a change: the offset in the fullflash; as many old bytes as new ones
  std::vector<std::uint8_t> oldBytes;
  std::vector<std::uint8_t> newBytes;
};

// Parses a line without its end. A change has an address of 1 to 8 digits and at least one byte. Blanks are
// spaces and tabs: at least one between the old and the new bytes, any number elsewhere, also in front. UTF-8
// byte order marks may precede a line: joined files have them inside. A line with unequal numbers of old and
// new bytes is invalid, because its effect on the bytes behind them is unclear.
[[nodiscard]] PatchLine ReadPatchLine(std::string_view line);

// The comment behind a change, from its ";" on, with a blank in front; empty if the line has none.
[[nodiscard]] std::string CommentOf(std::string_view line);

// The lines of a whole patch file or document without their ends. Lines end with CR LF, LF or CR; a UTF-8
// byte order mark may precede them, and bytes 0x1A may follow.
class PatchLineReader {
 public:
  explicit PatchLineReader(std::string_view text);
  // The next line; nothing at the end.
  [[nodiscard]] std::optional<std::string_view> Next();

 private:
  std::string_view rest_;
};

// Calls take(number, line) for these lines, numbered from 1.
void EachPatchLine(std::string_view text,
                   const std::function<void(std::size_t number, std::string_view line)>& take);

}  // namespace tarvelo
