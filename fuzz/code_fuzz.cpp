// Decodes arbitrary bytes as C166 code, writes and masks every instruction, and searches for the references
// to an arbitrary byte.
#include "code/instruction_text.h"
#include "code/masked_pattern.h"
#include "code/references.h"
#include "code/sweep.h"
#include "fuzz/target.h"
#include "patch/pattern.h"

namespace tarvelo::fuzz {
namespace {

// The sizes of instructions by the low nibble of their first byte.
constexpr std::string_view sizes = "2244444422422222";

void CheckInstruction(const Instruction& instruction, Bytes rest, std::string_view text) {
  const auto size = static_cast<std::size_t>(instruction.Size());
  Check(size >= 1 && size <= rest.size(), "an instruction is within the bytes");
  for (std::size_t i = 0; i < size; ++i)
    Check(instruction.Byte(static_cast<int>(i)) == rest[i], "an instruction has its bytes");
  const bool isWritten = text.starts_with("DW ") || text.starts_with("DB ");
  Check(instruction.IsData() == isWritten, "data is written as data");
  if (instruction.IsData())
    Check(size == std::min<std::size_t>(2, rest.size()), "data is a word, or the last byte");
  else
    Check(size == static_cast<std::size_t>(sizes[rest[0] & 0xF] - '0'), "the first byte tells the size");
  // What is behind an instruction does not count.
  Check(Instruction::Decode(rest.first(size), 0).IsData() == instruction.IsData(), "it decodes alone, too");
}

void Walk(const Fullflash& image, Offset from) {
  const Bytes bytes = image.ff();
  Offset expected = from;
  Sweep(bytes, from, from + 0x1000, [&](Offset at, const Instruction& instruction, const ExtRange& range) {
    Check(at == expected, "a sweep leaves nothing out");
    expected += instruction.Size();
    const CodeText text = TextOf(instruction, image.PhoneAddress(at), range.IsExtended());
    CheckInstruction(instruction, bytes.subspan(static_cast<std::size_t>(at)), text.View());
    return false;
  });
  const std::string masked = MaskedPattern(bytes, {from, 0x1000});
  Check(masked.size() == 2 * static_cast<std::size_t>(expected - from), "a pattern has every byte");
  Check(Pattern(masked).PatCount() == expected - from, "a pattern can be read");
}

}  // namespace

// DWord at 0: the byte that is referred to, which is also where the walk begins. Byte 4: which DPPs have a
// stated page; their words follow. Then the image.
void Run(Bytes data) {
  Input input(data);
  const auto wanted = static_cast<std::uint32_t>(input.DWord());
  const int stated = input.Byte();
  DppPages dpps;
  for (std::size_t i = 0; i < dpps.size(); ++i)
    if ((stated >> i & 1) != 0) dpps[i] = static_cast<std::uint16_t>(input.Word() & 0x3FF);
  const Fullflash image = ImageOf(input.Rest());
  if (!image.IsOpen()) return;
  const Offset target = wanted % image.ff().size();
  Walk(image, target);

  Offset last = 0;
  for (const Reference& reference : GetReferences(image, target, {}, dpps, noProgress)) {
    Check(reference.offset >= last && reference.offset < image.ffEnd(), "references are in order");
    last = reference.offset;
    const std::string text = TextOf(reference, image);
    Check(!text.empty() && !text.starts_with("DB"), "a reference is words");
    const bool isPointer = reference.kind == ReferenceKind::Pointer;
    Check(isPointer == text.starts_with("DW"), "only a pointer is data");
  }
}

}  // namespace tarvelo::fuzz
