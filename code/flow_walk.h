// Follows the flow of a program through its code, and remembers the instructions that it reached.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "code/instruction.h"
#include "code/switch_tables.h"
#include "code/word_set.h"
#include "core/fullflash.h"

namespace tarvelo {

class FlowWalk {
 public:
  FlowWalk(const Fullflash& image, SwitchTables& switches);

  // Follows the flow from `entry`, which must be even and in the image, through all that it reaches in its
  // segment from `entry` up to `end`, where it leaves the function. Calls return. What was reached before is
  // not followed again.
  //
  // The flow is clean if it meets neither data nor filling (two words in a row that are FFFF or 0000;
  // behind a call, it is an end), nor the middle of another instruction, nor the end of the segment or image.
  // Otherwise Walk returns false and remembers nothing of it.
  [[nodiscard]] bool Walk(Offset entry, Offset end = farAway);

  // Whether an instruction that was reached begins at an even offset, or has its bytes.
  [[nodiscard]] bool IsStart(Offset offset) const { return starts_.Has(offset); }
  [[nodiscard]] bool IsCode(Offset offset) const { return code_.Has(offset); }
  [[nodiscard]] WordSet& Starts() { return starts_; }
  [[nodiscard]] const WordSet& Code() const { return code_; }

  // What the instructions of the last walk name, as offsets in the image.
  struct Named {
    std::vector<Offset> near;   // called by CALLA, CALLR, PCALL
    std::vector<Offset> far;    // called by CALLS
    std::vector<Offset> other;  // jumped to by JMPS, or loaded as offset and segment into two registers
  };
  [[nodiscard]] const Named& Names() const { return named_; }

  static constexpr Offset farAway = Offset{1} << 40;

 private:
  [[nodiscard]] bool Run(Offset at);
  [[nodiscard]] bool Pass(Offset at, const Instruction& instruction);
  void Open(Offset target);
  void NoteCall(Offset at, const Instruction& instruction);
  void NotePair(Offset at, const Instruction& instruction);
  void Forget();
  [[nodiscard]] bool IsFilling(Offset at) const;
  // The offset of a phone address at which code can be: in the image, and even.
  [[nodiscard]] std::optional<Offset> CodePlace(std::uint32_t address) const;

  const Fullflash& image_;
  const Bytes bytes_;
  SwitchTables& switches_;
  WordSet starts_, code_;
  // How many instructions failed walks may reach before all that they reach is remembered as bad.
  std::int64_t patience_;
  WordSet bad_;
  Offset entry_ = 0, end_ = 0, limit_ = 0;  // of the current walk; `limit_`: of its segment
  std::vector<Offset> open_, reached_;
  Named named_;
};

}  // namespace tarvelo
