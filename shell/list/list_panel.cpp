#include "shell/list/list_panel.h"

#include <utility>

#include "core/notation.h"
#include "core/places.h"
#include "resources/texts.h"
#include "shell/base/strings.h"
#include "shell/list/list_view.h"
#include "shell/services/clipboard.h"
#include "shell/services/dump_files.h"
#include "shell/services/edit_commands.h"
#include "shell/services/ids.h"
#include "shell/services/place_commands.h"

namespace tarvelo {

ListPanel::ListPanel(Workbench& bench, PanelTraits traits, char letter, wxWindow* window,
                     wxWindow* listParent)
    : Panel(traits),
      bench_(bench),
      letter_(letter),
      list_(new ListView(listParent ? listParent : &bench.frame.Parent())),
      window_(window ? window : list_),
      search_(bench, [this](const std::string& text, SearchFrom from) {
        return list_->Find(text, from, SearchedColumn());
      }) {
  list_->onActivate = [this](std::size_t) { bench_.frame.Run(Commands()->DefaultId()); };
  list_->onContextMenu = [this](const wxPoint& place) { bench_.frame.PopUpCommands(place); };
  bench_.frame.AcceptDrops(list_->Control());
}

Offset ListPanel::Here() const {
  const auto row = list_->Selected();
  return row ? static_cast<Offset>(*row) : -1;
}

void ListPanel::Return(Offset here) {
  if (here >= 0) list_->Select(static_cast<std::size_t>(here));
}

std::optional<std::size_t> ListPanel::Figure() const {
  if (list_->RowCount() == 0) return {};
  return list_->RowCount();
}

wxWindow& ListPanel::FirstFocus() { return list_->Control(); }

const PanelCommands* ListPanel::Commands() {
  if (!commands_) {
    commands_ = MakeCommands();
    commands_->Add(EditCommands(bench_));
  }
  return &*commands_;
}

void ListPanel::Save() { SaveList(bench_, list_->ShownRows(), list_->RowCount(), letter_); }

void ListPanel::Recaption(const Messages& messages) { list_->Recaption(messages, Traits().name); }

std::string ListPanel::AddressOf(Offset offset) const { return AddressText(bench_.document.Image(), offset); }

wxString ListPanel::HowToFill(Text command, const char* shortcut, Text help) const {
  const Messages& texts = bench_.texts;
  return Wx(texts.Msg(command)) + " (" + shortcut + ")\n" + Wx(texts.Msg(help));
}

// --- commands ---

std::function<bool()> ListPanel::Chosen() {
  return [this] { return ChosenRegion().has_value(); };
}

std::function<bool()> ListPanel::Any() {
  return [this] { return list_->RowCount() > 0; };
}

std::vector<PanelCommand> ListPanel::OpenCommands() {
  return PlaceCommands(bench_, [this] { return ChosenRegion(); });
}

std::vector<PanelCommand> ListPanel::CopyCommands() {
  return {
      {Id::CopyOffset, Text::CopyOffset, Text::HelpCopyNumber, "", [this] { CopyOffset_Click(); }, Chosen()},
      {Id::CopyAddress, Text::CopyAddress, Text::HelpCopyNumber, "", [this] { CopyAddress_Click(); },
       Chosen()},
      // The shortcut is the list's own: elsewhere in the panel it copies other things.
      {.id = Id::CopyRows,
       .caption = Text::CopyRows,
       .help = Text::HelpCopyRows,
       .run = [this] { list_->CopyRows(); },
       .enabled = Chosen(),
       .captionEnd = " (Ctrl+C)"}};
}

std::vector<PanelCommand> ListPanel::FindCommands(Text search) {
  return {{Id::Find, search, Text::HelpSearchText, "Ctrl+F", [this] { search_.Find(); }, Any()},
          {Id::FindMore, Text::SearchAgain, Text::HelpSearchAgain, "Ctrl+G", [this] { search_.FindMore(); },
           Any()},
          {Id::Next, Text::NextHit, Text::HelpSearchAgain, "F3", [this] { search_.FindMore(); }, Any()},
          {Id::Previous, Text::PreviousHit, Text::HelpSearchAgain, "Shift+F3",
           [this] { search_.FindPrevious(); }, Any()}};
}

std::vector<PanelCommand> ListPanel::StepCommands(Text next, Text previous) {
  return {{Id::Next, next, Text::HelpNext, "F3", [this] { list_->Step(1); }, Any()},
          {Id::Previous, previous, Text::HelpPrevious, "Shift+F3", [this] { list_->Step(-1); }, Any()}};
}

void ListPanel::CopyOffset_Click() {
  const auto region = ChosenRegion();
  if (!region) return;
  const Fullflash& image = bench_.document.Image();
  const bool isInside = region->offset >= 0 && region->offset <= image.ffEnd();
  Copy(isInside ? OffsetText(image, region->offset) : WholeHex(region->offset));
}

void ListPanel::CopyAddress_Click() {
  if (const auto region = ChosenRegion()) Copy(AddressOf(region->offset));
}

}  // namespace tarvelo
