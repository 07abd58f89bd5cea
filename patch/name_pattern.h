// Patterns that find an address in any firmware version: the usual way to make a list of names for a firmware
// that nobody has looked at yet.
//
//   E6FC ??41 [1101....] 0?     bytes; "?" for half a byte, "." for a bit
//   8860 { F048 DB00 }          here is a call or jump that leads to these bytes; also DA?????? { F048 DB00 }
//   E6FC4100 + 4, E6FC4100 - 2  the result is so many bytes (hexadecimal) further, or before
//   &( E6FC???? E6FD???? )      the address that the reference at the result holds
//
// Blanks separate what needs it. A reference is a call or jump, a pair of MOVs, an EXTP or EXTS and the
// operand behind it, or a pointer of two words (offset, and page or segment).
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/fullflash.h"
#include "core/scan/vector_scan.h"

namespace tarvelo {

class NamePattern {
 public:
  // Throws std::invalid_argument, with the reason in English, if the text is no pattern.
  explicit NamePattern(std::string_view text);

  // The phone addresses that the pattern finds, at most `most`, in the order of their places in the image.
  // Follows at most 16 calls and jumps for each byte of the image, and finds nothing behind them.
  [[nodiscard]] std::vector<std::uint32_t> Find(const Fullflash& image, std::size_t most) const;

 private:
  friend class NamePatternReader;
  friend class NamePatternMatcher;

  // A byte, or a call or jump and what stands where it leads.
  struct Element {
    std::uint8_t value = 0;
    std::uint8_t mask = 0;
    bool isFollowed = false;
    std::vector<Element> there;
  };
  // What is done with a place, from the innermost to the outermost.
  struct Step {
    bool isReference = false;  // read the reference there; else move
    Offset distance = 0;
  };

  [[nodiscard]] std::optional<std::uint32_t> ResultAt(const Fullflash& image, Offset at) const;
  [[nodiscard]] Offset FixedBytes() const;
  [[nodiscard]] std::vector<Probe> WholeBytes() const;

  std::vector<Element> elements_;
  std::vector<Step> steps_;
};

// A line of a list of names: name = pattern. A ";" begins a comment.
struct NamedPattern {
  std::size_t line = 0;  // from 1
  std::string name;
  std::optional<NamePattern> pattern;  // nothing: malformed
  std::string problem;                 // why
};

// Reads a list; empty lines and comments are left out.
[[nodiscard]] std::vector<NamedPattern> ReadNamedPatterns(std::string_view text);

}  // namespace tarvelo
