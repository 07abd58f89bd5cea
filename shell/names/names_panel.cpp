#include "shell/names/names_panel.h"

#include <algorithm>
#include <utility>

#include "core/places.h"
#include "document/what_lies.h"
#include "resources/texts.h"
#include "shell/base/strings.h"
#include "shell/list/list_view.h"
#include "shell/services/ids.h"
#include "shell/services/talk.h"

namespace tarvelo {

NamesPanel::NamesPanel(Workbench& bench)
    : ListPanel(bench, {.menuEntry = Id::PlaceNames, .name = Text::PlaceNames}, 'N') {
  const auto renew = [this] {
    isStale_ = true;
    if (bench_.frame.IsVisible(*this)) Build();
  };
  nameWatch_ = bench.document.OnNames(renew);
  changeWatch_ = bench.document.OnChange(renew);
  List().Control().Bind(wxEVT_CHAR_HOOK, [this](wxKeyEvent& event) {
    if (event.GetKeyCode() == WXK_DELETE && event.GetModifiers() == wxMOD_NONE)
      bench_.frame.Run(Id::RemoveNames);
    else
      event.Skip();
  });
}

void NamesPanel::Clear() {
  isStale_ = false;
  addresses_.clear();
  List().SetRows(Rows());
  ShowHint();
}

void NamesPanel::ShowHint() {
  List().SetEmptyHint(addresses_.empty() ? HowToFill(Text::NamePlace, "Ctrl+N", Text::HelpNamePlace)
                                         : wxString());
}

void NamesPanel::Recaption(const Messages& messages) {
  ListPanel::Recaption(messages);
  List().Reword(Rows());
  ShowHint();
}

std::optional<std::size_t> NamesPanel::Figure() const {
  const std::size_t count = bench_.document.IsOpen() ? bench_.document.PlaceNames().Count() : 0;
  return count > 0 ? std::optional(count) : std::nullopt;
}

// The current place stays current; if it is gone, the one behind it becomes current.
void NamesPanel::Build() {
  if (!std::exchange(isStale_, false)) return;
  const auto row = List().Selected();
  const std::uint32_t current = row ? addresses_[*row] : 0;
  const Names& names = bench_.document.PlaceNames();
  addresses_.clear();
  for (std::size_t i = 0; i < names.Count(); ++i) addresses_.push_back(names[i].address);
  List().ReplaceRows(Rows());
  ShowHint();
  if (names.Count() > 0) List().SelectRows({std::min(names.From(current), names.Count() - 1)});
}

TableRows NamesPanel::Rows() const {
  return {Captions(bench_.texts, {Text::ColumnOffset, Text::ColumnAddress, Text::ColumnName,
                                  Text::ColumnComment, Text::ColumnWhatLiesThere}),
          addresses_.size(), [this](std::size_t i) { return RowOf(addresses_[i]); }};
}

Table::Row NamesPanel::RowOf(std::uint32_t address) const {
  const Document& document = bench_.document;
  const Fullflash& image = document.Image();
  const auto place = document.PlaceNames().At(address);
  const auto inside = OffsetOf(image, address);
  return {{inside ? OffsetText(image, *inside) : "", AddressText(image, OffsetAt(address)),
           std::string(place ? place->name : ""), std::string(place ? place->comment : ""),
           inside ? WhatLiesText(document, *inside, bench_.texts) : ""}};
}

Offset NamesPanel::OffsetAt(std::uint32_t address) const {
  return Offset{address} - bench_.document.Image().CorrBase();
}

std::optional<Region> NamesPanel::ChosenRegion() const {
  const auto row = List().Selected();
  if (!row || *row >= addresses_.size()) return {};
  const std::uint32_t address = addresses_[*row];
  return Region{OffsetOf(bench_.document.Image(), address).value_or(OffsetAt(address)), 1};
}

PanelCommands NamesPanel::MakeCommands() {
  std::vector<PanelCommand> commands = OpenCommands();
  // The key is the list's own: in the filter line it deletes text.
  Append(commands, {{.id = Id::RemoveNames,
                     .caption = Text::RemoveNames,
                     .help = Text::HelpRemoveNames,
                     .run = [this] { Remove_Click(); },
                     .enabled = Chosen(),
                     .captionEnd = " (Del)"}});
  Append(commands, CopyCommands());
  Append(commands, FindCommands(Text::Search));
  return PanelCommands(std::move(commands), Id::OpenHex);
}

void NamesPanel::Remove_Click() {
  std::vector<Name> removed;
  for (const std::size_t row : List().SelectedRows()) removed.push_back({addresses_[row], {}, {}});
  if (removed.empty()) return;
  const wxString question = Wx(bench_.texts.Msg(Text::NamesToRemoveLabel)) + std::to_string(removed.size());
  if (bench_.talk.Confirm(question)) bench_.document.NamePlaces(removed);
}

}  // namespace tarvelo
