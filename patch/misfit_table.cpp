#include "patch/misfit_table.h"

#include "core/notation.h"
#include "core/places.h"
#include "patch/patch_lines.h"
#include "text/unicode.h"

namespace tarvelo {

MisfitTable::MisfitTable(const ReadPatch& patch, const PatchCheck& check, const Fullflash& image,
                         const Messages& messages, const MisfitWords& words)
    : patch_(patch),
      check_(check),
      image_(image),
      messages_(messages),
      words_(words),
      fitting_(check.Count(Fit::Fine)),
      applied_(check.Count(Fit::Applied)),
      count_(CountMisfits(patch, check)),
      listed_(MisfitsOf(patch, check, mostListed)) {}

std::string MisfitTable::Summary() const {
  std::string text = Msg(Text::MisfitLinesLabel) + std::to_string(count_) + "\n" +
                     Msg(Text::FittingLinesLabel) + std::to_string(fitting_);
  if (applied_ > 0) text += "\n" + Msg(words_.applied) + std::to_string(applied_);
  if (listed_.size() < count_) text += "\n" + Msg(Text::PatchLinesCutOff);
  return text;
}

std::string MisfitTable::Header() const {
  std::string text;
  for (const std::string& line : patch_.header) text.append(text.empty() ? "" : "\n") += InOneLine(line);
  return text;
}

TableRows MisfitTable::Rows() const {
  return {Captions(messages_, {Text::ColumnLine, Text::ColumnOffset, Text::PhoneAddress, Text::ColumnExpected,
                               Text::ColumnFound}),
          listed_.size(), [this](std::size_t row) {
            const Misfit& misfit = listed_[row];
            return misfit.isInvalid ? InvalidRow(patch_.invalid[misfit.index]) : ChangeRow(misfit.index);
          }};
}

Table::Row MisfitTable::InvalidRow(const InvalidPatchLine& invalid) const {
  return {{LineText(invalid.line), "", "", "",
           Msg(Text::NotAPatchLine) + " \"" + InOneLine(invalid.text) + "\""}};
}

Table::Row MisfitTable::ChangeRow(std::size_t index) const {
  const auto& [line, change] = patch_.changes[index];
  const CheckedChange& checked = check_.changes[index];
  const bool isOutside = checked.fit == Fit::Outside;
  return {{LineText(line), OffsetText(image_, change.offset),
           isOutside ? "" : AddressText(image_, change.offset), FirstBytes(change.oldBytes, lineBytesShown),
           isOutside ? Msg(Text::DataOutsideImage) : FirstBytes(checked.found, lineBytesShown)}};
}

// Pads line numbers to the width of the last one, so that they sort as text.
std::string MisfitTable::LineText(std::size_t line) const {
  std::string text = std::to_string(line);
  const std::size_t width = std::to_string(listed_.back().line).size();
  return text.insert(0, width - text.size(), ' ');
}

}  // namespace tarvelo
