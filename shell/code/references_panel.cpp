#include "shell/code/references_panel.h"

#include <algorithm>
#include <utility>

#include "core/places.h"
#include "resources/texts.h"
#include "shell/base/strings.h"
#include "shell/list/list_view.h"
#include "shell/services/ids.h"
#include "shell/services/search_progress.h"
#include "shell/services/status_bar.h"
#include "shell/services/talk.h"

namespace tarvelo {
namespace {

std::vector<std::string> ReferenceCaptions(const Messages& messages) {
  return Captions(messages, {Text::ColumnOffset, Text::ColumnAddress, Text::ColumnFunction,
                             Text::ColumnInstruction, Text::ColumnKind, Text::ColumnSure});
}

Text TextOf(ReferenceKind kind) {
  switch (kind) {
    case ReferenceKind::Call: return Text::ReferenceCall;
    case ReferenceKind::Jump: return Text::ReferenceJump;
    case ReferenceKind::Access: return Text::ReferenceAccess;
    case ReferenceKind::Pair: return Text::ReferencePair;
    case ReferenceKind::Pointer: return Text::ReferencePointer;
    case ReferenceKind::Data: break;
  }
  return Text::ReferenceData;
}

Text TextOf(ReferenceSureness sure) {
  switch (sure) {
    case ReferenceSureness::Certain: return Text::SureCertain;
    case ReferenceSureness::Likely: return Text::SureLikely;
    case ReferenceSureness::Possible: break;
  }
  return Text::SurePossible;
}

}  // namespace

ReferencesPanel::ReferencesPanel(Workbench& bench)
    : ListPanel(bench, {.menuEntry = Id::References, .name = Text::References}, 'X') {
  const auto renew = [this] {
    isStale_ = target_.has_value();
    if (bench_.frame.IsVisible(*this)) Build();
  };
  watch_ = bench.document.OnChange(renew);
  nameWatch_ = bench.document.OnNames(renew);
}

// An edit may have led here: a stopped search must not keep others from hearing of it.
void ReferencesPanel::Build() {
  if (!isStale_) return;
  const auto row = List().Selected();
  try {
    Search(*target_);
  } catch (const Stopped&) {
    found_.clear();
  }
  List().ReplaceRows(Rows());
  if (row && !found_.empty()) List().Select(std::min(*row, found_.size() - 1));
  ShowHint();
}

void ReferencesPanel::Clear() {
  target_.reset();
  found_.clear();
  functions_.reset();
  isStale_ = false;
  List().SetRows(Rows());
  ShowHint();
}

void ReferencesPanel::Recaption(const Messages& messages) {
  ListPanel::Recaption(messages);
  List().Reword(Rows());
  ShowHint();
}

void ReferencesPanel::Show(Offset target) {
  Search(target);
  List().SetRows(Rows());
  if (!found_.empty()) List().Select(0);
  ShowHint();
}

Offset ReferencesPanel::Here() const {
  return target_.value_or(0) << rowBits | std::max<Offset>(0, ListPanel::Here());
}

void ReferencesPanel::Return(Offset here) {
  const Offset target = here >> rowBits;
  if (target != target_) Show(target);
  const Offset row = here & ((Offset{1} << rowBits) - 1);
  if (row < std::ssize(found_)) ListPanel::Return(row);
}

void ReferencesPanel::Search(Offset target) {
  Document& document = bench_.document;
  SearchProgress progress(bench_);
  auto functions = document.Functions(progress);
  found_ = GetReferences(document.Image(), target, *functions, document.Dpps(), progress);
  std::ranges::stable_sort(found_, {}, &Reference::sure);
  functions_ = std::move(functions);
  target_ = target;
  isStale_ = false;
}

// Above the list: what it is about.
void ReferencesPanel::ShowHint() {
  if (!target_) return List().SetEmptyHint(HowToFill(Text::WhoRefers, "Ctrl+U", Text::HelpWhoRefers));
  std::string hint = std::string(bench_.texts.Msg(Text::ReferencesToLabel)) + NameOfTarget();
  if (isStale_)
    hint = bench_.texts.Msg(Text::SearchStopped);
  else if (found_.empty())
    hint = hint + ". " + std::string(bench_.texts.Msg(Text::NothingRefers));
  List().SetEmptyHint(Wx(hint));
}

std::string ReferencesPanel::NameOfTarget() const {
  const Fullflash& image = bench_.document.Image();
  const std::string place = OffsetText(image, *target_) + " = " + SegmentText(image, *target_);
  const std::string name(bench_.document.PlaceNames().NameAt(image.PhoneAddress(*target_)));
  return name.empty() ? place : name + " (" + place + ")";
}

TableRows ReferencesPanel::Rows() const {
  return {ReferenceCaptions(bench_.texts), found_.size(), [this](std::size_t i) { return RowOf(found_[i]); }};
}

Table::Row ReferencesPanel::RowOf(const Reference& reference) const {
  const Fullflash& image = bench_.document.Image();
  const Function* function = functions_->At(reference.offset);
  std::string inside;
  if (function) {
    inside = bench_.document.PlaceNames().NameAt(image.PhoneAddress(function->code.offset));
    if (inside.empty()) inside = SegmentText(image, function->code.offset);
  }
  std::string sure(bench_.texts.Msg(TextOf(reference.sure)));
  return {{OffsetText(image, reference.offset), SegmentText(image, reference.offset), inside,
           tarvelo::TextOf(reference, image), std::string(bench_.texts.Msg(TextOf(reference.kind))), sure}};
}

std::optional<Region> ReferencesPanel::ChosenRegion() const {
  const auto row = List().Selected();
  if (!row || *row >= found_.size()) return {};
  return Region{found_[*row].offset, 1};
}

PanelCommands ReferencesPanel::MakeCommands() {
  std::vector<PanelCommand> commands = OpenCommands();
  Append(commands, CopyCommands());
  Append(commands, FindCommands(Text::Search));
  return PanelCommands(std::move(commands), Id::OpenCode);
}

}  // namespace tarvelo
