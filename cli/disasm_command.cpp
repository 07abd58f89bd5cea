#include <ostream>

#include "cli/code_files.h"
#include "cli/numbers.h"
#include "cli/output.h"
#include "cli/subcommands.h"
#include "code/instruction_text.h"
#include "code/sweep.h"
#include "core/places.h"
#include "patch/pattern.h"

namespace tarvelo::cli {
namespace {

// One instruction of a dump, or data.
struct Line {
  const Fullflash& image;
  Offset offset;
  const Instruction& instruction;
  const ExtRange& range;

  [[nodiscard]] std::string Bytes() const { return HexOfBytes(image.Region(offset, instruction.Size())); }
  [[nodiscard]] CodeText Text() const {
    return TextOf(instruction, image.PhoneAddress(offset), range.IsExtended());
  }
  // Where it goes, or the address that its memory operand names.
  [[nodiscard]] std::optional<std::uint32_t> Target() const {
    if (instruction.IsData()) return {};
    if (instruction.HasMemory()) return range.Address(instruction.Word());
    return instruction.Target(image.PhoneAddress(offset));
  }
};

std::string PlainLine(const Line& line) {
  return OffsetText(line.image, line.offset) + '\t' + SegmentText(line.image, line.offset) + '\t' +
         line.Bytes() + '\t' + std::string(line.Text().View()) + '\n';
}

// Splits "MOV R4, [R5]" into its mnemonic and operands.
std::string ObjectLine(const Line& line) {
  const CodeText text = line.Text();
  const std::string_view view = text.View();
  const auto blank = view.find(' ');
  Json operands = Json::array();
  for (auto from = blank; from != view.npos;) {
    const auto begin = view.find_first_not_of(", ", from);
    from = view.find(',', begin);
    operands.push_back(view.substr(begin, from == view.npos ? from : from - begin));
  }
  const std::optional<std::uint32_t> target = line.Target();
  return JsonLine({{"offset", line.offset},
                   {"address", line.image.PhoneAddress(line.offset)},
                   {"bytes", line.Bytes()},
                   {"mnemonic", view.substr(0, blank)},
                   {"operands", operands},
                   {"target", target ? Json(*target) : Json()}});
}

}  // namespace

void Disasm(const DisasmArguments& arguments, Context& context) {
  const Offset from = ParseOffset(arguments.offset);
  int left = ParseDecimal("--count", arguments.count);
  if (left < 1) throw WrongArguments("--count: there must be one at least");
  const std::optional<Dump> dump = OpenCode(arguments.file, context);
  if (!dump) return;
  CheckPlace(from, *dump, arguments.file);
  const Bytes bytes = dump->image.ff();
  Sweep(bytes, from, static_cast<Offset>(bytes.size()),
        [&](Offset at, const Instruction& instruction, const ExtRange& range) {
          const Line line{dump->image, at, instruction, range};
          PrintPiece(arguments.json ? ObjectLine(line) : PlainLine(line), context);
          return --left == 0;
        });
}

}  // namespace tarvelo::cli
