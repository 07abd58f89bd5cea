#include "port/carried_lines.h"

#include <algorithm>

#include "code/masked_pattern.h"
#include "core/notation.h"
#include "patch/patch_lines.h"
#include "patch/pattern.h"
#include "resources/texts.h"
#include "text/unicode.h"
#include "versions/function_table.h"

namespace tarvelo {
namespace {

constexpr std::size_t patternAround = 4;         // instructions on each side that a similar place has, too
constexpr std::size_t mostSimilar = 100;         // are counted
constexpr Offset dataAround = 64, dataRow = 16;  // bytes

std::string HexRow(const Fullflash& image, Offset offset) {
  const Offset from = std::max<Offset>(0, offset);
  const Offset end = std::min<Offset>(std::ssize(image.ff()), offset + dataRow);
  if (end <= from) return {};
  return HexOfBytes(image.Region(from, end - from));
}

}  // namespace

std::string RefusalText(PortRefusal refusal, const Messages& messages) {
  const auto text = [refusal] {
    switch (refusal) {
      case PortRefusal::NotOld: return Text::RefusedNotOld;
      case PortRefusal::NotUnique: return Text::RefusedNotUnique;
      case PortRefusal::NoPlace: return Text::RefusedNoPlace;
      case PortRefusal::SeveralPlaces: return Text::RefusedSeveralPlaces;
      case PortRefusal::NoAddress: return Text::RefusedNoAddress;
      case PortRefusal::NotEmpty: return Text::RefusedNotEmpty;
    }
    return Text::RefusedNoPlace;
  };
  return std::string(messages.Msg(text()));
}

CarriedLines::CarriedLines(const ReadPatch& patch, std::span<const PortedChange> ported,
                           const CodeVersions& versions, const Messages& messages)
    : patch_(patch),
      ported_(ported),
      versions_(versions),
      messages_(messages),
      carried_(static_cast<std::size_t>(
          std::ranges::count_if(ported, [](const PortedChange& change) { return !change.refusal; }))) {}

std::string CarriedLines::Summary() const {
  std::string text =
      Msg(Text::LinesCarriedLabel) + std::to_string(Carried()) + " / " + std::to_string(Count());
  if (IsFarApart()) text += "\n" + Msg(Text::PatchFarApart);
  return text;
}

TableRows CarriedLines::Rows() const {
  return {Captions(messages_, {Text::ColumnLine, Text::ColumnState, Text::ColumnOffset, Text::ColumnNewOffset,
                               Text::ColumnAgreeing, Text::ColumnOld, Text::ColumnNew, Text::ColumnReason}),
          Count(), [this](std::size_t row) -> Table::Row {
            constexpr std::size_t width = 5;
            if (row >= patch_.changes.size()) {
              const InvalidPatchLine& line = patch_.invalid[row - patch_.changes.size()];
              return {{WholeDecimal(static_cast<std::int64_t>(line.line), width), Msg(Text::LineRefused), "",
                       "", "", "", "", Msg(Text::NotAPatchLine) + " \"" + InOneLine(line.text) + "\""},
                      true};
            }
            const auto& [line, change] = patch_.changes[row];
            const PortedChange& ported = ported_[row];
            const bool isCarried = !ported.refusal;
            return {{WholeDecimal(static_cast<std::int64_t>(line), width),
                     Msg(isCarried ? Text::LineCarried : Text::LineRefused), PatchAddress(change.offset),
                     isCarried ? PatchAddress(ported.offset) : "",
                     isCarried ? WholeDecimal(ported.context, 4) : "",
                     FirstBytes(isCarried ? ported.oldBytes : change.oldBytes, lineBytesShown),
                     FirstBytes(isCarried ? ported.newBytes : change.newBytes, lineBytesShown),
                     isCarried ? "" : RefusalText(*ported.refusal, messages_)},
                    !isCarried};
          }};
}

CodeAround CarriedLines::Around(std::size_t row) const {
  if (row >= patch_.changes.size()) return {SideRows({}, versions_, messages_), {}};
  const Change& change = patch_.changes[row].change;
  const int unit = versions_.Pairing().Old().UnitAt(change.offset);
  if (unit < 0) return InData(change, ported_[row]);
  return InCode(change, ported_[row], unit);
}

// Of a refused line, the function that comes nearest.
CodeAround CarriedLines::InCode(const Change& change, const PortedChange& ported, int unit) const {
  const CodePairing& pairing = versions_.Pairing();
  const int newUnit = ported.refusal ? pairing.NewOf(unit) : pairing.New().UnitAt(ported.offset);
  std::vector<CodeSide> sides = SidesOf(pairing, unit, newUnit);
  const auto isBehind = [&](const CodeSide& side) { return side.old && side.old->offset > change.offset; };
  auto at = static_cast<std::size_t>(std::ranges::find_if(sides, isBehind) - sides.begin());
  while (at > 1 && !sides[at - 1].old) --at;  // behind the line's instruction
  return {SideRows(std::move(sides), versions_, messages_), at - 1};
}

CodeAround CarriedLines::InData(const Change& change, const PortedChange& ported) const {
  const Offset from = change.offset - dataAround;
  const Offset shift = ported.offset - change.offset;
  const bool isCarried = !ported.refusal;
  const auto count = static_cast<std::size_t>((2 * dataAround + change.Size()) / dataRow + 1);
  TableRows rows{
      Captions(messages_,
               {Text::ColumnOffset, Text::ColumnBytes, "", Text::ColumnNewOffset, Text::ColumnBytes}),
      count, [=, this](std::size_t row) -> Table::Row {
        const Offset offset = from + static_cast<Offset>(row) * dataRow;
        const std::string old = HexRow(versions_.Old(), offset);
        const std::string now = isCarried ? HexRow(versions_.New(), offset + shift) : std::string();
        const bool differs = isCarried && old != now;
        return {{old.empty() ? "" : PatchAddress(offset), old, differs ? "!" : "",
                 now.empty() ? "" : PatchAddress(offset + shift), now},
                differs};
      }};
  return {std::move(rows), static_cast<std::size_t>(dataAround / dataRow)};
}

std::string CarriedLines::Similar(std::size_t row) const {
  if (row >= patch_.changes.size()) return {};
  const CodePairing& pairing = versions_.Pairing();
  const Change& change = patch_.changes[row].change;
  const int unit = pairing.Old().UnitAt(change.offset);
  if (unit < 0) return {};
  const auto code = pairing.OldCode(unit);
  const auto first = static_cast<std::size_t>(
      std::ranges::find_if(code, [&](const auto& each) { return each.offset > change.offset; }) -
      code.begin());
  const std::size_t from = first - std::min(first, patternAround + 1);
  const std::size_t end = first + patternAround;
  const Offset start = code[from].offset;
  const Offset stop = end < code.size() ? Offset{code[end].offset}
                                        : pairing.Old().units[static_cast<std::size_t>(unit)].code.End();
  const Pattern pattern(MaskedPattern(versions_.Old().ff(), {start, stop - start}));
  const auto count = [&](const Fullflash& image) {
    NoProgress progress;
    const std::size_t found = FindAll(image, pattern, progress, mostSimilar).size();
    return found < mostSimilar ? std::to_string(found) : std::to_string(mostSimilar) + "+";
  };
  return Msg(Text::SimilarPlacesLabel) + count(versions_.Old()) + ", " + count(versions_.New());
}

}  // namespace tarvelo
