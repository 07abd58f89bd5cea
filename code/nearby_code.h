// Tells code from data where no function is known: by what stands in front of a place and behind it.
//
// Code decodes without reserved encodings, up to a return, and behind a return, filling, or other code.
// Random data meets a reserved encoding after 4 or 5 instructions, texts and tables decode as few kinds of
// instruction, and filling (words of 0000 or FFFF) ends every walk.
#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include "code/functions.h"
#include "code/instruction.h"
#include "code/register_pairs.h"

namespace tarvelo {

enum class CodeSign : std::uint8_t {
  Code,    // an instruction of a function, or of code that is clean around it
  Unsure,  // it may be one
  Data,
  Inside,  // the place is in the middle of another instruction
};

// What an instruction has made of a DPP: its page, or nothing if that is not known.
struct DppValue {
  std::optional<std::uint16_t> page;
};

// Keeps what it has decoded around the last place. Asking for places in ascending order is fast.
class NearbyCode {
 public:
  // Both must outlive it.
  NearbyCode(const Fullflash& image, const FunctionList& functions);

  // What an instruction at `offset` would be. The offset must be within the image.
  [[nodiscard]] CodeSign At(Offset offset);
  // Whether an instruction of a listed function has the word at `offset`, which is at an even address.
  [[nodiscard]] bool IsListed(Offset offset) const;
  // Whether an instruction of code has that word.
  [[nodiscard]] bool IsInCode(Offset offset);
  // The last value that a DPP (0 .. 3) gets in a straight line before the instruction at `offset`; nothing if
  // it gets none there.
  [[nodiscard]] std::optional<DppValue> DppBefore(Offset offset, int dpp);
  // The straight line around the instruction at `offset`. Where that is not in step with what is in front,
  // only MOVs of constants side by side count there.
  [[nodiscard]] StraightLine LineAround(Offset offset);
  // The ATOMIC or EXT* whose range the instruction at `offset` is in: its offset, or nothing.
  [[nodiscard]] std::optional<Offset> RangeBefore(Offset offset);

 private:
  // How the code in front of a step ends, or that it does not.
  enum class Ahead : std::uint8_t {
    Open,    // undecided
    Clean,   // a return, or enough instructions
    Jump,    // an unconditional jump, with data behind it
    Filled,  // filling, without an end in front
    Broken,  // a reserved encoding, or another function, without an end in front
  };

  struct Step {
    Offset at = 0;
    Instruction instruction;
    std::uint16_t before = 0;  // telling instructions in front, since the last data or filling
    std::uint16_t behind = 0;  // from here up to the next data or filling
    bool isTelling = false;    // it speaks for code
    bool isBehindEnd = false;  // filling, a return or the image's start is in front, and no data since
    Ahead ahead = Ahead::Open;
  };

  static constexpr int back = 512;     // bytes decoded in front of a block
  static constexpr int block = 256;    // bytes whose places share one decoding
  static constexpr int further = 256;  // bytes decoded behind the block
  static constexpr int none = -1;

  void Decode(Offset offset);
  void AddSteps(Offset from, Offset end);
  [[nodiscard]] Instruction InstructionAt(Offset at) const;
  [[nodiscard]] bool IsRepeated(int step) const;
  void LookBack(Offset first);
  void LookAhead(bool isImageEnd);
  [[nodiscard]] Ahead WayAhead(const Step& step, const Step& next) const;

  // The step that begins at `offset` or holds it; none if there is none.
  [[nodiscard]] int StepAt(Offset offset) const;
  [[nodiscard]] int StepHolding(Offset offset) const;
  // The step in front, if the program goes on from it to this one; otherwise none.
  [[nodiscard]] int LineBefore(int step) const;
  [[nodiscard]] int RangeOf(int step) const;
  [[nodiscard]] CodeSign SignOf(const Step& step) const;
  [[nodiscard]] CodeSign SignAlone(Offset offset) const;
  [[nodiscard]] bool IsListedInside(Offset offset) const;

  const Fullflash& image_;
  const FunctionList& functions_;
  Offset decoded_ = -1;  // the block that is decoded
  Offset start_ = 0;     // of the decoded bytes
  int count_ = 0;
  std::array<Step, (back + block + further) / 2> steps_;
  std::array<std::int16_t, (back + block + further) / 2> stepAt_;  // by word from start_
};

}  // namespace tarvelo
