// The commands of the comparison, and its view of functions.
#include <wx/checkbox.h>
#include <wx/panel.h>
#include <wx/sizer.h>

#include <algorithm>
#include <utility>

#include "resources/texts.h"
#include "shell/compare/compare_panel.h"
#include "shell/compare/difference_strip.h"
#include "shell/list/list_view.h"
#include "shell/services/change_as_code.h"
#include "shell/services/ids.h"
#include "shell/view/change_view.h"

namespace tarvelo {
namespace {

constexpr Offset mostAsCode = 64;  // bytes of a difference that are shown as instructions

}  // namespace

// --- functions ---

bool ComparePanel::ShowsFunctions() const { return asFunctions_->GetValue(); }

void ComparePanel::ShowFunctions(bool functions) {
  asFunctions_->SetValue(functions);
  ForgetRows();  // they have other columns
  if (HasSecond()) CompareAgain();
}

// If the user stops it, the bytes are compared instead.
void ComparePanel::CompareFunctionsAgain() {
  const std::vector<std::size_t> selection = List().Selection();
  if (!functions_.Compare(*second_, path_)) return ShowFunctions(false);
  stale_ = false;
  ShowDifferences(true);
  List().SelectRows(selection.empty() ? std::vector<std::size_t>{0} : selection);
}

void ComparePanel::ForgetRows() {
  List().SetRows({});
  sides_->SetRows({});
  change_->ShowChange({});
  comparison_ = Comparison();
  functions_.Clear();
}

// A small window has room for the list only.
void ComparePanel::ShowSides() {
  const bool isHigh = window_->GetClientSize().y >= window_->FromDIP(360);
  const bool holdsCode = HasSecond() && bench_.document.Image().PageMode();
  compared_->GetSizer()->Show(sides_, ShowsFunctions() && isHigh);
  compared_->GetSizer()->Show(change_, !ShowsFunctions() && holdsCode && isHigh);
}

void ComparePanel::ShowRow(std::size_t row) {
  if (ShowsFunctions()) {
    sides_->SetRows(functions_.Sides(row));
  } else if (row < comparison_.differences.size()) {
    Difference difference = comparison_.differences[row];
    strip_->Mark(difference.offset, difference.size);
    difference.size = std::min(difference.size, mostAsCode);
    change_->ShowChange(ChangeOf(difference));
  }
}

// --- commands ---

std::optional<Region> ComparePanel::ChosenRegion() const {
  if (const auto row = List().Selected(); row && ShowsFunctions()) return functions_.RegionOf(*row);
  if (const Difference* difference = Chosen()) return Region{difference->offset, difference->size};
  return {};
}

PanelCommands ComparePanel::MakeCommands() {
  const auto isDifference = [this] { return Chosen() != nullptr; };
  std::vector<PanelCommand> commands = OpenCommands();
  Append(commands, CopyCommands());
  Append(commands, StepCommands(Text::NextDifference, Text::PreviousDifference));
  Append(commands, {{Id::DifferencesToPatch, Text::DifferencesToPatch, Text::HelpAddToPatch, "",
                     [this] { DifferencesToPatch_Click(); }, isDifference},
                    {Id::ChangeAsCode, Text::ChangeAsCode, Text::HelpChangeAsCode, "Ctrl+Shift+D",
                     [this] { ShowChangeAsCode(bench_, ChangeOf(*Chosen())); }, isDifference}});
  return PanelCommands(std::move(commands), Id::OpenHex);
}

void ComparePanel::DifferencesToPatch_Click() {
  std::vector<std::size_t> rows = List().SelectedRows();
  std::ranges::sort(rows);
  Offset size = 0;
  for (const std::size_t row : rows) size += comparison_.differences[row].size;
  bench_.frame.AddPatch(Text::DifferencesToPatch, size, comparison_.differences.size(), [&] {
    std::vector<Change> changes;
    for (const std::size_t row : rows) changes.push_back(ChangeOf(comparison_.differences[row]));
    return changes;
  });
}

// From the bytes of the file that was opened to those of the second dump.
Change ComparePanel::ChangeOf(const Difference& difference) const {
  const Fullflash& image = bench_.document.Image();
  Change change = tarvelo::ChangeOf(image.ff(), second_->ff(), difference, comparison_.shift);
  for (const Change& edit : bench_.document.Edits().Changes(image, difference.offset, difference.size))
    std::ranges::copy(edit.oldBytes, change.oldBytes.begin() + (edit.offset - difference.offset));
  return change;
}

}  // namespace tarvelo
