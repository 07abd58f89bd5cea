#include "versions/function_table.h"

#include <memory>
#include <utility>

#include "code/instruction_text.h"
#include "core/notation.h"
#include "core/places.h"
#include "resources/texts.h"

namespace tarvelo {
namespace {

constexpr std::array stateTexts{Text::StateSame, Text::StateMoved, Text::StateChanged, Text::StateGone,
                                Text::StateNew};
static_assert(stateTexts.size() == functionStates);

void AddPlace(std::vector<std::string>& cells, const Fullflash& image, const Region& code) {
  if (code.size == 0) {
    cells.insert(cells.end(), 3, std::string());
    return;
  }
  cells.push_back(WholeHex(code.offset));
  cells.push_back(SegmentText(image, code.offset));
  cells.push_back(WholeDecimal(code.size, 5));
}

std::string NameOf(const Fullflash& image, const Region& code, const Names& names) {
  return code.size == 0 ? std::string() : std::string(names.NameAt(image.PhoneAddress(code.offset)));
}

std::string InstructionIn(const Fullflash& image, std::uint32_t offset, bool isExtended) {
  const Instruction instruction = Instruction::Decode(image.ff(), offset);
  return std::string(TextOf(instruction, image.PhoneAddress(offset), isExtended).View());
}

// Whether the EXT range of an instruction selects the other half of the special function registers, as far as
// the instructions in front of it in the same rows say.
std::vector<bool> ExtendedOnes(const std::vector<CodeSide>& sides, const Fullflash& image,
                               std::optional<UnitInstruction> CodeSide::*which) {
  std::vector<bool> extended;
  ExtRange range;
  for (const CodeSide& side : sides) {
    extended.push_back(range.IsExtended());
    if (const auto& here = side.*which) range.Pass(Instruction::Decode(image.ff(), here->offset));
  }
  return extended;
}

}  // namespace

std::string StateText(FunctionState state, const Messages& messages) {
  return std::string(messages.Msg(stateTexts[static_cast<std::size_t>(state)]));
}

std::array<int, functionStates> CountStates(std::span<const ComparedFunction> functions) {
  std::array<int, functionStates> counts{};
  for (const ComparedFunction& function : functions) ++counts[static_cast<std::size_t>(function.state)];
  return counts;
}

TableRows FunctionRows(std::span<const ComparedFunction> functions, const CodeVersions& versions,
                       const Names& oldNames, const Names& newNames, const Messages& messages) {
  return {
      Captions(messages, {Text::ColumnState, Text::ColumnOffset, Text::ColumnAddress, Text::ColumnSize,
                          Text::ColumnNewOffset, Text::ColumnNewAddress, Text::ColumnNewSize,
                          Text::ColumnEdited, Text::ColumnConstants, Text::ColumnName, Text::ColumnNewName}),
      functions.size(), [=, &versions, &oldNames, &newNames](std::size_t row) -> Table::Row {
        const ComparedFunction& function = functions[row];
        Table::Row made{{StateText(function.state, messages)}};
        AddPlace(made.cells, versions.Old(), function.old);
        AddPlace(made.cells, versions.New(), function.now);
        const bool hasBoth = function.oldUnit >= 0 && function.newUnit >= 0;
        made.cells.push_back(hasBoth ? WholeDecimal(function.edited, 4) : "");
        made.cells.push_back(hasBoth ? WholeDecimal(function.constants, 4) : "");
        made.cells.push_back(NameOf(versions.Old(), function.old, oldNames));
        made.cells.push_back(NameOf(versions.New(), function.now, newNames));
        return made;
      }};
}

TableRows SideRows(std::vector<CodeSide> sides, const CodeVersions& versions, const Messages& messages) {
  struct Shown {
    std::vector<CodeSide> sides;
    std::vector<bool> oldExtended, newExtended;
  };
  auto shown = std::make_shared<Shown>();
  shown->oldExtended = ExtendedOnes(sides, versions.Old(), &CodeSide::old);
  shown->newExtended = ExtendedOnes(sides, versions.New(), &CodeSide::now);
  shown->sides = std::move(sides);
  return {Captions(messages, {Text::ColumnOffset, Text::ColumnInstruction, "", Text::ColumnNewOffset,
                              Text::ColumnInstruction}),
          shown->sides.size(), [shown, &versions](std::size_t row) -> Table::Row {
            const CodeSide& side = shown->sides[row];
            const auto text = [&](const auto& instruction, const Fullflash& image, bool isExtended) {
              return instruction ? InstructionIn(image, instruction->offset, isExtended) : std::string();
            };
            const auto offset = [](const auto& instruction) {
              return instruction ? WholeHex(instruction->offset) : std::string();
            };
            const std::string old = text(side.old, versions.Old(), shown->oldExtended[row]);
            const std::string now = text(side.now, versions.New(), shown->newExtended[row]);
            constexpr std::array marks{"~", "?", "!"};
            const bool isEqual = side.mark == SideMark::Same && old == now;
            return {{offset(side.old), old, isEqual ? "" : marks[static_cast<std::size_t>(side.mark)],
                     offset(side.now), now},
                    side.mark == SideMark::Edited};
          }};
}

}  // namespace tarvelo
