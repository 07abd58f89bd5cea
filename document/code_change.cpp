#include "document/code_change.h"

#include <algorithm>
#include <vector>

#include "code/instruction_text.h"
#include "code/sweep.h"
#include "core/notation.h"
#include "core/places.h"

namespace tarvelo {
namespace {

constexpr int mostLines = 200;  // in each group
constexpr Offset runUp = 64;    // bytes; a sweep falls into step long before
constexpr Offset behind = 4;    // bytes behind the change that its last instruction may have

// A stretch of the image with bytes of a change in place of its own.
struct Stretch {
  Offset start = 0;  // in the image; at an even phone address
  std::vector<std::uint8_t> bytes;

  [[nodiscard]] Offset End() const { return start + std::ssize(bytes); }
  void Put(Offset offset, Bytes change) {
    for (const std::uint8_t byte : change) {
      if (offset >= start && offset < End()) bytes[static_cast<std::size_t>(offset - start)] = byte;
      ++offset;
    }
  }
};

// Where the instruction begins that has the byte at an offset.
Offset StartOf(const Stretch& stretch, const FunctionList& functions, Offset offset) {
  const Offset even = offset - ((offset - stretch.start) & 1);
  for (const Offset at : {even, even - 2})
    if (functions.IsInstruction(at)) return at;
  Offset start = even;
  Sweep(stretch.bytes, 0, even - stretch.start + 1, [&](Offset at, const Instruction&, const ExtRange&) {
    start = stretch.start + at;
    return false;
  });
  return start;
}

void AddLines(std::string& text, const char* mark, const Stretch& stretch, Offset from, Offset end,
              const Fullflash& image) {
  int lines = 0;
  Sweep(stretch.bytes, from - stretch.start, end - stretch.start,
        [&](Offset at, const Instruction& instruction, const ExtRange& range) {
          if (++lines > mostLines) {
            text += "...\n";
            return true;
          }
          const Offset offset = stretch.start + at;
          std::string bytes;
          for (int i = 0; i < instruction.Size(); ++i) bytes += HexOfByte(instruction.Byte(i));
          bytes.resize(8, ' ');
          const CodeText code = TextOf(instruction, image.PhoneAddress(offset), range.IsExtended());
          text.append(mark).append(SegmentText(image, offset)).append("  ").append(bytes).append("  ");
          text.append(code.View()).append("\n");
          return false;
        });
}

}  // namespace

std::string InstructionsOf(const Change& change, const Fullflash& image, const FunctionList& functions) {
  const Offset size = std::ssize(image.ff());
  const Offset first = change.offset;
  if (!image.PageMode() || first < 0 || first >= size || change.newBytes.empty()) return {};
  const Offset end = std::min(size, first + change.Size());
  Stretch stretch;
  if (first < image.FirstWord()) return {};
  stretch.start = std::max(image.FirstWord(), image.WordStart(first) - runUp);
  const Bytes bytes = image.Region(stretch.start, std::min(size, end + behind) - stretch.start);
  stretch.bytes.assign(bytes.begin(), bytes.end());
  stretch.Put(first, change.oldBytes);
  const Offset from = StartOf(stretch, functions, first);
  std::string text;
  AddLines(text, "- ", stretch, from, end, image);
  stretch.Put(first, change.newBytes);
  AddLines(text, "+ ", stretch, from, end, image);
  return text;
}

}  // namespace tarvelo
