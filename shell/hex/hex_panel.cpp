#include "shell/hex/hex_panel.h"

#include <wx/textctrl.h>

#include <algorithm>
#include <utility>

#include "core/byte_text.h"
#include "core/places.h"
#include "patch/pattern_walk.h"
#include "resources/texts.h"
#include "shell/base/strings.h"
#include "shell/hex/hex_canvas.h"
#include "shell/services/clipboard.h"
#include "shell/services/ids.h"
#include "shell/services/place_commands.h"
#include "shell/services/status_bar.h"
#include "shell/services/talk.h"

namespace tarvelo {
namespace {

constexpr Offset copyLimit = 0x100000;  // bytes; as text they take several times as much memory

}  // namespace

HexPanel::HexPanel(Workbench& bench)
    : ImagePanel(
          bench,
          {.menuEntry = Id::HexView, .name = Text::HexView, .saveTextCaption = Text::SaveSelectedBytes},
          ColonForm::Page),
      commands_(MakeCommands()),
      canvas_(new HexCanvas(&Window())),
      editor_(bench, *canvas_) {
  Arrange(*canvas_, *canvas_);
  canvas_->onSelect = [this] { CursorMoved(); };
  watch_ = bench.document.OnChange([this] {
    canvas_->ImageChanged();
    ShowInformation();
  });
  nameWatch_ = bench.document.OnNames([this] { ShowInformation(); });
}

void HexPanel::GoTo(Offset offset) { bench_.frame.ShowHex(offset, 0); }

int HexPanel::CopyCommand() const { return canvas_->CursorInText() ? Id::CopyText : Id::CopyHex; }

const Fullflash& HexPanel::Image() const { return bench_.document.Image(); }

void HexPanel::Build() {
  if (!canvas_->HasImage()) canvas_->SetImage(&Image(), &bench_.document.Edits());
  ShowInformation();
}

void HexPanel::Clear() {
  canvas_->SetImage(nullptr, nullptr);
  Place().ClearFault();
  ShowInformation();
}

void HexPanel::Save() {
  const Region range = canvas_->Selection();
  if (range.size == 0) return bench_.talk.Complain(Text::NoDataToSave);
  const std::filesystem::path file = bench_.document.Beside("_" + OffsetText(Image(), range.offset) + ".bin");
  ReplaceFile(file, Image().Region(range.offset, range.size));
  bench_.talk.Tell(Wx(bench_.texts.MsgS(Text::FileSaved, PathText(file.filename()))), file);
}

Offset HexPanel::Here() const { return canvas_->Selection().offset; }

void HexPanel::Return(Offset here) { Go(here, 0); }

void HexPanel::Go(Offset start, Offset size) { canvas_->Go(start, size); }

// --- the line below ---

std::string HexPanel::InformationText() const {
  if (!canvas_->HasImage()) return {};
  const Messages& texts = bench_.texts;
  const Region range = canvas_->Selection();
  std::string text = texts.Label(Text::ColumnOffset) + " " + OffsetText(Image(), range.offset);
  text.append("    ").append(texts.Label(Text::PhoneAddress)) += " " + AddressText(Image(), range.offset);
  if (range.size > 0)
    text.append("    ").append(texts.Msg(Text::SelectedBytesLabel)) += std::to_string(range.size);
  text += "    " + Reading(Image(), range.offset);
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
      {Id::GoTo, Text::GoTo, Text::HelpGoTo, "Ctrl+L", [this] { Place().Start(); }, any},
      {},
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
      {Id::SelectAll, Text::SelectAll, Text::HelpSelectAll, "Ctrl+A", [this] { SelectAll_Click(); }, any}};
}

std::vector<PanelCommand> HexPanel::EditCommands() {
  const auto any = [this] { return canvas_->HasImage(); };
  const auto canUndo = [this] { return IsPlaceFocused() ? Place().Field().CanUndo() : editor_.CanUndo(); };
  const auto canRedo = [this] { return IsPlaceFocused() ? Place().Field().CanRedo() : editor_.CanRedo(); };
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

// In the line above, undoes edits of the line's own text.
void HexPanel::UndoBytes_Click() {
  if (IsPlaceFocused())
    Place().Field().Undo();
  else
    editor_.Undo();
}

void HexPanel::RedoBytes_Click() {
  if (IsPlaceFocused())
    Place().Field().Redo();
  else
    editor_.Redo();
}

void HexPanel::PasteHex_Click() {
  if (IsPlaceFocused())
    Place().Field().Paste();
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
  Window().CallAfter([this, text] {
    isWrapShown_ = true;
    bench_.status.ShowHelp(Wx(bench_.texts.Msg(text)));
  });
}

void HexPanel::CursorMoved() {
  ShowInformation();
  if (std::exchange(isWrapShown_, false)) bench_.status.ShowHelp(wxString());
}

}  // namespace tarvelo
