#include "code/functions_explorer.h"

#include "code/functions.h"
#include "core/notation.h"
#include "core/places.h"

namespace tarvelo {
namespace {

std::span<const Function> ListOf(const Findings& found) { return found.As<FunctionList>().All(); }

Findings Search(const Dump& dump, Progress& progress) { return Findings(GetFunctions(dump.image, progress)); }

std::size_t Count(const Findings& found) { return ListOf(found).size(); }

Item ItemOf(const Findings& found, std::size_t record) {
  const Region code = ListOf(found)[record].code;
  return {.number = static_cast<int>(record), .data = code, .entry = code};
}

std::vector<std::string> FunctionCaptions(const Messages& messages) {
  return Captions(messages, {"N", Text::ColumnOffset, Text::ColumnAddress, Text::ColumnSize,
                             Text::ColumnCalls, Text::ColumnName});
}

TableRows Rows(const Dump& dump, const Findings& found, const Messages& messages, CellRoom) {
  return {FunctionCaptions(messages), Count(found), [found, &dump](std::size_t row) -> Table::Row {
            const Fullflash& image = dump.image;
            const Function& function = ListOf(found)[row];
            const std::string name(dump.names.NameAt(image.PhoneAddress(function.code.offset)));
            return {{WholeDecimal(static_cast<std::int64_t>(row), 5), WholeHex(function.code.offset),
                     SegmentText(image, function.code.offset), WholeDecimal(function.code.size, 5),
                     WholeDecimal(function.calls, 4), name}};
          }};
}

std::string Lines(const Findings& found, const Messages& messages) {
  if (Count(found) == 0) return "";
  std::string text(messages.Msg(Text::FunctionCountLabel));
  return text.append(std::to_string(Count(found))).append("\n");
}

constexpr ClaimGroup functions{Text::Functions, {}, 0xAA4499};
constexpr ClaimKind function{"function", Text::MapFunction, {}, 125, &functions};
constexpr const ClaimKind* kinds[] = {&function};

// Only likely: data may decode as instructions, too.
void ClaimFunctions(const Dump&, const Findings& found, const TakeClaim& take) {
  int number = 0;
  for (const Function& each : ListOf(found))
    take({each.code.offset, each.code.size, &function, Sureness::Likely, number++});
}

}  // namespace

constinit const Explorer functionsExplorer{
    .key = "functions",
    .about = "functions of C166 code",
    .letter = 'U',
    .name = Text::Functions,
    .help = Text::HelpFunctions,
    .search = Search,
    .count = Count,
    .item = ItemOf,
    .isOfC166 = true,
    .captions = FunctionCaptions,
    .rows = Rows,
    .lines = Lines,
    .kinds = kinds,
    .claim = ClaimFunctions,
};

}  // namespace tarvelo
