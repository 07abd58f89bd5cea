#include "demo/demo_code.h"

#include <array>
#include <iterator>
#include <utility>
#include <vector>

#include "demo/demo_code_writer.h"
#include "demo/demo_random.h"

namespace tarvelo {
namespace {

// Every group of functions is smaller than this.
constexpr std::size_t longestGroup = 0x8000;
constexpr std::size_t longestFunction = 0x1000;
constexpr std::size_t segment = 0x10000;
// In the later version: one new function for so many others, one more step for so many steps.
constexpr unsigned newFunctions = 60, newSteps = 400;

enum class Operands { registers, constant, memory };

struct Instruction {
  std::uint8_t opcode;
  Operands operands;
};

// The everyday instructions. Each is listed as often as its share of the code requires.
constexpr Instruction everyday[] = {
    {0xF0, Operands::registers},  // MOV Rn, Rm
    {0xF0, Operands::registers},  // MOV Rn, Rm
    {0xE0, Operands::registers},  // MOV Rn, #4
    {0xE0, Operands::registers},  // MOV Rn, #4
    {0xA8, Operands::registers},  // MOV Rn, [Rm]
    {0xB8, Operands::registers},  // MOV [Rm], Rn
    {0x00, Operands::registers},  // ADD Rn, Rm
    {0x08, Operands::registers},  // ADD Rn, #3
    {0x20, Operands::registers},  // SUB Rn, Rm
    {0x40, Operands::registers},  // CMP Rn, Rm
    {0x48, Operands::registers},  // CMP Rn, #3
    {0x5C, Operands::registers},  // SHL Rn, #4
    {0xC0, Operands::registers},  // MOVBZ Rn, Rm
    {0xE6, Operands::constant},   // MOV Rn, #16
    {0xE6, Operands::constant},   // MOV Rn, #16
    {0x46, Operands::constant},   // CMP Rn, #16
    {0x66, Operands::constant},   // AND Rn, #16
    {0x06, Operands::constant},   // ADD Rn, #16
    {0xF2, Operands::memory},     // MOV Rn, mem
    {0xF2, Operands::memory},     // MOV Rn, mem
    {0xF2, Operands::memory},     // MOV Rn, mem
    {0xF6, Operands::memory},     // MOV mem, Rn
    {0xF6, Operands::memory},     // MOV mem, Rn
    {0xF3, Operands::memory},     // MOVB Rn, mem
    {0x7C, Operands::registers},  // SHR Rn, #4
};

// Jumps over the next instructions: JNB, JB, and JMPR on Z, NZ, C.
constexpr std::uint8_t jumps[] = {0x9A, 0x8A, 0x2D, 0x3D, 0x3D, 0x8D};

constexpr std::array logTexts{
    "eeprom: block %u not found",
    "eeprom: sector %u erased",
    "eeprom: no room for block %u",
    "flash: write failed at %08lx",
    "flash: erase suspended",
    "sim: card removed",
    "sim: wrong answer to reset",
    "sim: pin retries left %u",
    "rr: cell %u selected",
    "rr: no suitable cell",
    "mm: location update",
    "mm: imsi detach",
    "cc: call %u connected",
    "cc: call %u released, cause %u",
    "sms: memory full",
    "sms: stored in slot %u",
    "mmi: unknown key %02x",
    "mmi: menu %u opened",
    "mmi: picture %u missing",
    "mmi: text %u missing in language %u",
    "audio: melody %u started",
    "audio: melody %u stopped",
    "audio: bad record in melody %u",
    "t9: no dictionary for language %u",
    "t9: word too long",
    "accu: charging started",
    "accu: voltage %u mV",
    "accu: temperature sensor open",
    "rtc: alarm set for %02u:%02u",
    "rtc: oscillator stopped",
    "os: stack of task %u low",
    "os: queue %u full",
    "os: timer %u expired twice",
    "at: command too long",
    "wap: connection closed",
    "wap: no gateway configured",
    "irda: link lost",
    "ERROR %04x in task %u",
    "ASSERT line %u",
    "watchdog: task %u late",
};

class Functions {
 public:
  Functions(const Flash& flash, Area area, const CodeVersion& version)
      : flash_(flash),
        isLater_(version.isLater),
        out_(area.begin),
        random_(version.seed),
        later_(~version.seed) {
    for (unsigned& address : memory_) address = 0x8000 + 2 * random_.Below(0x1000);
  }

  void Group();
  [[nodiscard]] const CodeWriter& Out() const { return out_; }

 private:
  void Texts();
  void Function();
  void Later(unsigned seldom, const auto& write);
  void Table(std::size_t first);
  void Step();
  void Plain();
  void Jump();
  void Call();
  void CallWithMessage();
  void CallWithText();
  // A random index of a list.
  std::uint32_t Below(const auto& list) { return random_.Below(static_cast<std::uint32_t>(list.size())); }

  const Flash& flash_;
  bool isLater_;
  CodeWriter out_;
  Random random_;
  Random later_;                        // of what only the later version has
  std::array<unsigned, 64> memory_{};   // addresses of the variables in this part of the firmware
  std::vector<std::size_t> functions_;  // offsets of callable functions
  std::vector<std::size_t> texts_;      // offsets of log texts
};

void Functions::Group() {
  Texts();
  const std::size_t first = functions_.size();
  const unsigned count = 8 + random_.Below(12);
  std::vector<std::size_t> added;  // the older functions do not call them
  for (unsigned i = 0; i < count; ++i) {
    Later(newFunctions, [&] {
      Function();
      added.push_back(functions_.back());
      functions_.pop_back();
    });
    Function();
  }
  if (flash_.PageMode()) Table(first);
  for (const std::size_t function : added) out_.Pointer(flash_.Address(function));
}

// Writes what the later version has in addition, in one of so many places, without disturbing the rest.
void Functions::Later(unsigned seldom, const auto& write) {
  if (!isLater_ || later_.Below(seldom) > 0) return;
  std::swap(random_, later_);
  isLater_ = false;
  write();
  isLater_ = true;
  std::swap(random_, later_);
}

// Pointers to some of the functions from a number on: most of them are called from nowhere else.
void Functions::Table(std::size_t first) {
  for (std::size_t i = first; i < functions_.size(); i += 2) out_.Pointer(flash_.Address(functions_[i]));
}

void Functions::Texts() {
  texts_.clear();
  for (int i = 0; i < 5; ++i) texts_.push_back(out_.Text(logTexts[Below(logTexts)]));
}

// Functions cross no border of a segment.
void Functions::Function() {
  if (out_.Offset() % segment > segment - longestFunction)
    out_.SkipTo((out_.Offset() / segment + 1) * segment);
  functions_.push_back(out_.Offset());
  const unsigned saved = random_.Below(4);
  for (unsigned i = 0; i < saved; ++i) out_.Instruction(0x88, (9 - i) << 4);  // MOV [-R0], Rn
  const unsigned steps = 6 + random_.Below(50);
  for (unsigned i = 0; i < steps; ++i) {
    Later(newSteps, [this] { Plain(); });
    Step();
  }
  for (unsigned i = saved; i-- > 0;) out_.Instruction(0x98, (9 - i) << 4);  // MOV Rn, [R0+]
  out_.Instruction(0xDB, 0x00);                                             // RETS
}

void Functions::Step() {
  switch (random_.Below(24)) {
    case 0:
    case 1: return Call();
    case 2: return CallWithText();
    case 3: return CallWithMessage();
    case 4:
    case 5:
    case 6:
    case 7: return Jump();
    default: return Plain();
  }
}

void Functions::Plain() {
  const Instruction next = everyday[random_.Below(std::size(everyday))];
  const unsigned variable = memory_[Below(memory_)];
  const std::uint8_t byte = random_.Byte();
  const auto reg = static_cast<std::uint8_t>(0xF4 + random_.Below(12));
  switch (next.operands) {
    case Operands::registers: return out_.Instruction(next.opcode, byte);
    case Operands::constant: return out_.Instruction(next.opcode, reg, byte % 4 == 0 ? variable : byte);
    case Operands::memory: return out_.Instruction(next.opcode, reg, variable);
  }
}

// A jump forward, and the words that it skips.
void Functions::Jump() {
  const std::uint8_t opcode = jumps[random_.Below(std::size(jumps))];
  const unsigned words = 2 + random_.Below(12);
  if (opcode == 0x9A || opcode == 0x8A)
    out_.Instruction(opcode, 0x20 + random_.Below(8), random_.Below(16) << 12 | words);
  else
    out_.Instruction(opcode, words);
  const std::size_t end = out_.Offset() + 2 * words;
  while (out_.Offset() + 4 <= end) Plain();
  if (out_.Offset() < end) out_.Instruction(0x08, 0x41);  // ADD R4, #1
}

// CALLS to an earlier function.
void Functions::Call() {
  const std::uint32_t address = flash_.Address(functions_[Below(functions_)]);
  out_.Instruction(0xDA, address >> 16 & 0xFF, address & 0xFFFF);
}

// Passes the number of an interface text in R12 and what to do with it in R13.
void Functions::CallWithMessage() {
  out_.Instruction(0xE6, 0xFC, random_.Below(0x400));
  out_.Instruction(0xE6, 0xFD, random_.Below(4));
  Call();
}

// Passes the offset of a log text in its page in R12 and the page in R13.
void Functions::CallWithText() {
  const std::uint32_t address = flash_.Address(texts_[Below(texts_)]);
  out_.Instruction(0xE6, 0xFC, address % cpuPage);
  out_.Instruction(0xE6, 0xFD, address / cpuPage & 0x3FF);
  Call();
}

}  // namespace

void WriteCode(Flash& flash, Area area, const CodeVersion& version) {
  Functions functions(flash, area, version);
  while (functions.Out().Offset() + longestGroup < area.end) functions.Group();
  PutBytes(flash.bytes, area.begin, functions.Out().Code());
}

}  // namespace tarvelo
