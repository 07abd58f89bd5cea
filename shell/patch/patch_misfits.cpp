#include "shell/patch/patch_misfits.h"

#include <algorithm>

#include "core/places.h"
#include "patch/patch_lines.h"
#include "resources/texts.h"

namespace tarvelo {
namespace {

constexpr auto bytesShown = static_cast<std::size_t>(longestPatchLine);

std::string InOneLine(std::string text) {
  std::ranges::replace_if(
      text, [](unsigned char c) { return c < 0x20; }, ' ');
  return text;
}

}  // namespace

PatchMisfits::PatchMisfits(const ReadPatch& patch, const PatchCheck& check, const Fullflash& image,
                           const Messages& messages)
    : patch_(patch),
      check_(check),
      image_(image),
      messages_(messages),
      fitting_(check.Count(Fit::Fine)),
      applied_(check.Count(Fit::Applied)),
      count_(patch.invalid.size() + check.changes.size() - fitting_ - applied_) {
  List();
}

// Both kinds have the order of the lines already.
void PatchMisfits::List() {
  listed_.reserve(std::min(count_, mostListed));
  auto invalid = patch_.invalid.begin();
  const auto listInvalid = [&](std::size_t before) {
    for (; listed_.size() < mostListed && invalid != patch_.invalid.end() && invalid->line < before;
         ++invalid)
      listed_.push_back({invalid->line, static_cast<std::size_t>(invalid - patch_.invalid.begin()), true});
  };
  for (std::size_t i = 0; i < check_.changes.size(); ++i) {
    const Fit fit = check_.changes[i].fit;
    if (fit == Fit::Fine || fit == Fit::Applied) continue;
    listInvalid(patch_.changes[i].line);
    if (listed_.size() == mostListed) return;
    listed_.push_back({patch_.changes[i].line, i, false});
  }
  listInvalid(std::string::npos);
}

std::string PatchMisfits::Summary() const {
  std::string text = Msg(Text::MisfitLinesLabel) + std::to_string(count_) + "\n" +
                     Msg(Text::FittingLinesLabel) + std::to_string(fitting_);
  if (applied_ > 0) text += "\n" + Msg(Text::AppliedLinesLabel) + std::to_string(applied_);
  if (listed_.size() < count_) text += "\n" + Msg(Text::PatchLinesCutOff);
  return text;
}

std::vector<std::string> PatchMisfits::Captions() const {
  return tarvelo::Captions(messages_, {Text::ColumnLine, Text::ColumnOffset, Text::PhoneAddress,
                                       Text::ColumnExpected, Text::ColumnFound});
}

Table::Row PatchMisfits::Row(std::size_t number) const {
  const Misfit& misfit = listed_[number];
  return misfit.isInvalid ? InvalidRow(patch_.invalid[misfit.index]) : ChangeRow(misfit.index);
}

Table::Row PatchMisfits::InvalidRow(const InvalidPatchLine& invalid) const {
  return {{LineText(invalid.line), "", "", "",
           Msg(Text::NotAPatchLine) + " \"" + InOneLine(invalid.text) + "\""}};
}

Table::Row PatchMisfits::ChangeRow(std::size_t index) const {
  const auto& [line, change] = patch_.changes[index];
  const CheckedChange& checked = check_.changes[index];
  const bool isOutside = checked.fit == Fit::Outside;
  return {{LineText(line), OffsetText(image_, change.offset),
           isOutside ? "" : AddressText(image_, change.offset), FirstBytes(change.oldBytes, bytesShown),
           isOutside ? Msg(Text::DataOutsideImage) : FirstBytes(checked.found, bytesShown)}};
}

// As wide as the last one, so that they can be sorted.
std::string PatchMisfits::LineText(std::size_t line) const {
  std::string text = std::to_string(line);
  const std::size_t width = std::to_string(listed_.back().line).size();
  return text.insert(0, width - text.size(), ' ');
}

}  // namespace tarvelo
