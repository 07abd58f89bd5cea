#include "shell/hex/hex_panel.h"

#include <wx/panel.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include <algorithm>
#include <utility>

#include "core/byte_text.h"
#include "core/places.h"
#include "document/what_lies.h"
#include "patch/pattern_walk.h"
#include "resources/texts.h"
#include "shell/base/strings.h"
#include "shell/hex/hex_canvas.h"
#include "shell/platform/accessible_name.h"
#include "shell/services/clipboard.h"
#include "shell/services/ids.h"
#include "shell/services/place_commands.h"
#include "shell/services/status_bar.h"
#include "shell/services/talk.h"
#include "shell/view/place_line.h"

namespace tarvelo {
namespace {

constexpr Offset copyLimit = 0x100000;  // bytes; as text they take several times as much memory

}  // namespace

HexPanel::HexPanel(Workbench& bench)
    : Panel({.menuEntry = Id::HexView, .name = Text::HexView, .saveTextCaption = Text::SaveSelectedBytes}),
      bench_(bench),
      commands_(MakeCommands()),
      window_(new wxPanel(&bench.frame.Parent())),
      place_(new PlaceLine(window_, bench, ColonForm::Page)),
      canvas_(new HexCanvas(window_)),
      editor_(bench, *canvas_),
      information_(new wxStaticText(window_, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize,
                                    wxST_ELLIPSIZE_END | wxST_NO_AUTORESIZE)) {
  Layout();
  Bind();
  watch_ = bench.document.OnChange([this] {
    canvas_->ImageChanged();
    ShowInformation();
  });
  nameWatch_ = bench.document.OnNames([this] { ShowInformation(); });
}

void HexPanel::Layout() {
  const int gap = window_->FromDIP(6);
  auto* all = new wxBoxSizer(wxVERTICAL);
  all->Add(place_, 0, wxEXPAND | wxALL, gap);
  all->Add(canvas_, 1, wxEXPAND);
  all->Add(information_, 0, wxEXPAND | wxALL, gap);
  window_->SetSizer(all);
}

void HexPanel::Bind() {
  place_->from = [this] { return Here(); };
  place_->onGo = [this](Offset offset) {
    bench_.frame.ShowHex(offset, 0);
    canvas_->SetFocus();
  };
  canvas_->onSelect = [this] { CursorMoved(); };
  canvas_->onContextMenu = [this](const wxPoint& place) { bench_.frame.PopUpCommands(place); };
  window_->Bind(wxEVT_CHAR_HOOK, [this](wxKeyEvent& event) {
    const bool copy = event.GetModifiers() == wxMOD_CONTROL && event.GetKeyCode() == 'C';
    if (copy && canvas_->HasFocus())
      bench_.frame.Run(canvas_->CursorInText() ? Id::CopyText : Id::CopyHex);
    else if (event.GetKeyCode() == WXK_ESCAPE && !canvas_->HasFocus())
      canvas_->SetFocus();
    else
      event.Skip();
  });
  bench_.frame.AcceptDrops(*canvas_);
}

wxWindow& HexPanel::Window() { return *window_; }

wxWindow& HexPanel::FirstFocus() { return *canvas_; }

const Fullflash& HexPanel::Image() const { return bench_.document.Image(); }

void HexPanel::Build() {
  if (!canvas_->HasImage()) canvas_->SetImage(&Image(), &bench_.document.Edits());
  ShowInformation();
}

void HexPanel::Clear() {
  canvas_->SetImage(nullptr, nullptr);
  place_->ClearFault();
  ShowInformation();
}

void HexPanel::Save() {
  const Region range = canvas_->Selection();
  if (range.size == 0) return bench_.talk.Complain(Text::NoDataToSave);
  const std::filesystem::path file = bench_.document.Beside("_" + OffsetText(Image(), range.offset) + ".bin");
  ReplaceFile(file, Image().Region(range.offset, range.size));
  bench_.talk.Tell(Wx(bench_.texts.MsgS(Text::FileSaved, PathText(file.filename()))), file);
}

void HexPanel::Recaption(const Messages& messages) {
  place_->Recaption(messages);
  platform::SetAccessibleName(*canvas_, Wx(messages.Msg(Traits().name)));
  ShowInformation();
  window_->Layout();
}

Offset HexPanel::Here() const { return canvas_->Selection().offset; }

void HexPanel::Return(Offset here) { Go(here, 0); }

void HexPanel::Go(Offset start, Offset size) { canvas_->Go(start, size); }

// --- the line below ---

void HexPanel::ShowInformation() { information_->SetLabelText(Wx(InformationText())); }

std::string HexPanel::InformationText() const {
  if (!canvas_->HasImage()) return {};
  const Messages& texts = bench_.texts;
  const Region range = canvas_->Selection();
  std::string text = texts.Label(Text::ColumnOffset) + " " + OffsetText(Image(), range.offset);
  text.append("    ").append(texts.Label(Text::PhoneAddress)) += " " + AddressText(Image(), range.offset);
  if (range.size > 0)
    text.append("    ").append(texts.Msg(Text::SelectedBytesLabel)) += std::to_string(range.size);
  text += "    " + Reading(Image(), range.offset);
  text += "    " + WhatLiesText(bench_.document, range.offset, texts);
  const auto name = bench_.document.PlaceNames().At(Image().PhoneAddress(range.offset));
  if (name)
    text.append("    ").append(name->name).append(name->comment.empty() ? "" : "  ; ") += name->comment;
  return text;
}

// --- commands ---

PanelCommands HexPanel::MakeCommands() {
  std::vector<PanelCommand> commands = SearchCommands();
  const auto chosen = [this]() -> std::optional<Region> {
    if (!canvas_->HasImage()) return {};
    return canvas_->Selection();
  };
  Append(commands, PlaceCommands(bench_, chosen, Id::OpenHex));
  Append(commands, EditCommands());
  return PanelCommands(std::move(commands));
}

std::vector<PanelCommand> HexPanel::SearchCommands() {
  const auto any = [this] { return canvas_->HasImage(); };
  return {
      {Id::Find, Text::SearchForBytes, Text::HelpSearchNextBytes, "Ctrl+F", [this] { FindBytes_Click(); },
       any},
      {Id::Next, Text::SearchAgain, Text::HelpNext, "F3", [this] { FindNext_Click(); }, any},
      {Id::Previous, Text::PreviousHit, Text::HelpPrevious, "Shift+F3", [this] { FindPrevious_Click(); },
       any},
      {},
      {Id::CopyHex, Text::CopyAsHex, Text::HelpCopyAsHex, "", [this] { CopyHex_Click(); }, any},
      {Id::CopyText, Text::CopyAsText, Text::HelpCopyAsText, "", [this] { CopyText_Click(); }, any},
      {Id::CopyOffset, Text::CopyOffset, Text::HelpCopyNumber, "", [this] { CopyOffset_Click(); }, any},
      {},
      {Id::SelectAll, Text::SelectAll, Text::HelpSelectAll, "Ctrl+A", [this] { SelectBytes_Click(); }, any}};
}

std::vector<PanelCommand> HexPanel::EditCommands() {
  const auto any = [this] { return canvas_->HasImage(); };
  const auto canUndo = [this] {
    return place_->Field().HasFocus() ? place_->Field().CanUndo() : editor_.CanUndo();
  };
  const auto canRedo = [this] {
    return place_->Field().HasFocus() ? place_->Field().CanRedo() : editor_.CanRedo();
  };
  const auto selected = [this] { return canvas_->Selection().size > 0; };
  return {
      {Id::SwitchSide, Text::SwitchHexText, Text::HelpSwitchHexText, "F2", [this] { canvas_->SwitchSide(); },
       any},
      {},
      {Id::Undo, Text::Undo, Text::HelpUndo, "Ctrl+Z", [this] { UndoBytes_Click(); }, canUndo},
      {Id::Redo, Text::Redo, Text::HelpRedo, "Ctrl+Y", [this] { RedoBytes_Click(); }, canRedo},
      {Id::Paste, Text::Paste, Text::HelpPasteHex, "Ctrl+V", [this] { PasteHex_Click(); }, any},
      {Id::FillBytes, Text::FillWithByte, Text::HelpFillWithByte, "", [this] { editor_.Fill(); }, selected},
      {},
      {Id::ChangesToPatch, Text::ChangesToPatch, Text::HelpAddToPatch, "",
       [this] { editor_.ChangesToPatch(); }, any},
      {Id::SelectedToPatch, Text::SelectedChangesToPatch, Text::HelpAddToPatch, "",
       [this] { editor_.SelectedToPatch(); }, selected}};
}

bool HexPanel::StartGoTo() {
  if (!canvas_->HasImage()) return false;
  place_->Start();
  return true;
}

Bytes HexPanel::BytesToCopy(Text command) {
  const Region range = canvas_->Selection();
  if (range.size > copyLimit) {
    bench_.talk.ComplainOfSize(command, range.size, copyLimit);
    return {};
  }
  return Image().ff().subspan(static_cast<std::size_t>(range.offset),
                              static_cast<std::size_t>(std::max<Offset>(1, range.size)));
}

void HexPanel::CopyHex_Click() {
  if (const Bytes bytes = BytesToCopy(Text::CopyAsHex); !bytes.empty()) Copy(AsHex(bytes));
}

void HexPanel::CopyText_Click() {
  if (const Bytes bytes = BytesToCopy(Text::CopyAsText); !bytes.empty()) Copy(AsText(bytes));
}

void HexPanel::CopyOffset_Click() { Copy(OffsetText(Image(), canvas_->Selection().offset)); }

// In the line above, selects the line's own text.
void HexPanel::SelectBytes_Click() {
  if (place_->Field().HasFocus())
    place_->Field().SelectAll();
  else
    canvas_->SelectAll();
}

// In the line above, undoes edits of the line's own text.
void HexPanel::UndoBytes_Click() {
  if (place_->Field().HasFocus())
    place_->Field().Undo();
  else
    editor_.Undo();
}

void HexPanel::RedoBytes_Click() {
  if (place_->Field().HasFocus())
    place_->Field().Redo();
  else
    editor_.Redo();
}

void HexPanel::PasteHex_Click() {
  if (place_->Field().HasFocus())
    place_->Field().Paste();
  else
    editor_.Paste();
}

bool HexPanel::AskForPattern() {
  const auto answer = bench_.talk.AskPattern();
  if (answer) pattern_ = *answer;
  return answer.has_value();
}

void HexPanel::FindBytes_Click() {
  if (AskForPattern()) FindNext_Click();
}

// Searches from just after the start of the selection, which may be the last hit. A cursor without a
// selection may be on a hit that has not been found yet.
void HexPanel::FindNext_Click() {
  if (pattern_.empty() && !AskForPattern()) return;
  const Pattern pattern(pattern_);
  const Region range = canvas_->Selection();
  const Offset hit = FirstFrom(Image(), pattern, range.offset + (range.size > 0 ? 1 : 0));
  if (hit >= 0) return ShowHit(pattern, hit);
  ShowHit(pattern, FirstFrom(Image(), pattern, 0));
  SayWrapped(Text::SearchWrappedToStart);
}

void HexPanel::FindPrevious_Click() {
  if (pattern_.empty() && !AskForPattern()) return;
  const Pattern pattern(pattern_);
  const Offset hit = LastBefore(Image(), pattern, canvas_->Selection().offset);
  if (hit >= 0) return ShowHit(pattern, hit);
  ShowHit(pattern, LastBefore(Image(), pattern, std::ssize(Image().ff())));
  SayWrapped(Text::SearchWrappedToEnd);
}

void HexPanel::ShowHit(const Pattern& pattern, Offset hit) {
  isHitShown_ = hit >= 0;
  if (!isHitShown_) return bench_.talk.Complain(Wx(NotFound(pattern_, bench_.texts)));
  Go(hit, pattern.PatCount());
}

// In the status bar, until the cursor moves; after the menu that this command may come from has closed.
void HexPanel::SayWrapped(Text text) {
  if (!isHitShown_) return;
  window_->CallAfter([this, text] {
    isWrapShown_ = true;
    bench_.status.ShowHelp(Wx(bench_.texts.Msg(text)));
  });
}

void HexPanel::CursorMoved() {
  ShowInformation();
  if (std::exchange(isWrapShown_, false)) bench_.status.ShowHelp(wxString());
}

}  // namespace tarvelo
