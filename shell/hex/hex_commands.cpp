// The commands of the hex view.
#include <wx/textctrl.h>

#include <algorithm>
#include <array>
#include <iterator>
#include <stdexcept>

#include "core/places.h"
#include "resources/texts.h"
#include "shell/base/strings.h"
#include "shell/hex/find_bar.h"
#include "shell/hex/hex_canvas.h"
#include "shell/hex/hex_panel.h"
#include "shell/hex/other_pane.h"
#include "shell/hex/value_panel.h"
#include "shell/services/ids.h"
#include "shell/services/place_commands.h"
#include "shell/services/search_progress.h"
#include "shell/services/talk.h"

namespace tarvelo {

std::function<bool()> HexPanel::Any() const {
  return [this] { return canvas_->HasImage(); };
}

PanelCommand HexPanel::Command(int id, Text caption, Text help, const char* shortcut,
                               std::function<void()> run) {
  return {id, caption, help, shortcut, std::move(run), Any()};
}

PanelCommands HexPanel::MakeCommands() {
  std::vector<PanelCommand> commands = SearchCommands();
  const auto chosen = [this]() -> std::optional<Region> {
    if (!canvas_->HasImage()) return {};
    return canvas_->Selection();
  };
  Append(commands, CopyCommands());
  Append(commands, PlaceCommands(bench_, chosen, Id::OpenHex));
  Append(commands, StepCommands());
  Append(commands, EditCommands());
  Append(commands, LookCommands());
  return PanelCommands(std::move(commands));
}

std::vector<PanelCommand> HexPanel::SearchCommands() {
  return {
      Command(Id::Find, Text::SearchForBytes, Text::HelpSearchNextBytes, "Ctrl+F", [this] { Find_Click(); }),
      Command(Id::Next, Text::SearchAgain, Text::HelpNext, "F3", [this] { Step_Click(true); }),
      Command(Id::Previous, Text::PreviousHit, Text::HelpPrevious, "Shift+F3",
              [this] { Step_Click(false); })};
}

std::vector<PanelCommand> HexPanel::CopyCommands() {
  const auto copy = [this](int id, Text caption, Text help, void (HexCopy::*run)() const) {
    return Command(id, caption, help, "", [this, run] { (copy_.*run)(); });
  };
  const auto pointer = [this](int id, Text caption, ColonForm form) {
    return Command(id, caption, Text::HelpCopyPointer, "", [this, form] { copy_.CopyPointer(form); });
  };
  PanelCommand more{.caption = Text::CopyAs, .help = Text::HelpCopyAs};
  more.entries = {
      copy(Id::CopyCArray, Text::CopyAsCArray, Text::HelpCopyAsCArray, &HexCopy::CopyCArray),
      copy(Id::CopyPatchLines, Text::CopyAsPatchLines, Text::HelpCopyAsPatchLines, &HexCopy::CopyPatchLines),
      {},
      copy(Id::CopyOffset, Text::CopyOffset, Text::HelpCopyNumber, &HexCopy::CopyOffset),
      copy(Id::CopyAddress, Text::CopyAddress, Text::HelpCopyNumber, &HexCopy::CopyAddress),
      pointer(Id::CopyPagePointer, Text::CopyPagePointer, ColonForm::Page),
      pointer(Id::CopySegmentPointer, Text::CopySegmentPointer, ColonForm::Segment)};
  return {
      copy(Id::CopyHex, Text::CopyAsHex, Text::HelpCopyAsHex, &HexCopy::CopyHex),
      copy(Id::CopyText, Text::CopyAsText, Text::HelpCopyAsText, &HexCopy::CopyText),
      more,
      {},
      Command(Id::SelectAll, Text::SelectAll, Text::HelpSelectAll, "Ctrl+A", [this] { SelectAll_Click(); }),
      Command(Id::SelectRegion, Text::SelectRegion, Text::HelpSelectRegion, "Ctrl+Shift+A",
              [this] { SelectRegion_Click(); })};
}

std::vector<PanelCommand> HexPanel::StepCommands() {
  return {Command(Id::NextChange, Text::NextChange, Text::HelpNext, "F7", [this] { StepToChange(true); }),
          Command(Id::PreviousChange, Text::PreviousChange, Text::HelpPrevious, "Shift+F7",
                  [this] { StepToChange(false); }),
          Command(Id::NextName, Text::NextName, Text::HelpNext, "F8", [this] { StepToName(true); }),
          Command(Id::PreviousName, Text::PreviousName, Text::HelpPrevious, "Shift+F8",
                  [this] { StepToName(false); })};
}

// In a text field of the panel, undo, redo and paste are about its own text.
std::vector<PanelCommand> HexPanel::EditCommands() {
  const auto either = [this](void (wxTextEntry::*inField)(), void (HexEditor::*inImage)()) {
    return [this, inField, inImage] {
      if (wxTextCtrl* field = FocusedField())
        (field->*inField)();
      else
        (editor_.*inImage)();
    };
  };
  const auto canUndo = [this] { return FocusedField() ? FocusedField()->CanUndo() : editor_.CanUndo(); };
  const auto canRedo = [this] { return FocusedField() ? FocusedField()->CanRedo() : editor_.CanRedo(); };
  const auto selected = [this] { return canvas_->Selection().size > 0; };
  return {
      Command(Id::SwitchSide, Text::SwitchHexText, Text::HelpSwitchHexText, "F2",
              [this] { canvas_->SwitchSide(); }),
      {},
      {Id::Undo, Text::Undo, Text::HelpUndo, "Ctrl+Z", either(&wxTextEntry::Undo, &HexEditor::Undo), canUndo},
      {Id::Redo, Text::Redo, Text::HelpRedo, "Ctrl+Y", either(&wxTextEntry::Redo, &HexEditor::Redo), canRedo},
      Command(Id::Paste, Text::Paste, Text::HelpPasteHex, "Ctrl+V",
              either(&wxTextEntry::Paste, &HexEditor::Paste)),
      {Id::FillBytes, Text::FillWithByte, Text::HelpFillWithByte, "", [this] { editor_.Fill(); }, selected},
      Command(Id::WriteFileHere, Text::WriteFileHere, Text::HelpWriteFileHere, "",
              [this] { editor_.WriteFileHere(); }),
      {},
      Command(Id::ChangesToPatch, Text::ChangesToPatch, Text::HelpAddToPatch, "",
              [this] { editor_.ChangesToPatch(); }),
      {Id::SelectedToPatch, Text::SelectedChangesToPatch, Text::HelpAddToPatch, "",
       [this] { editor_.SelectedToPatch(); }, selected}};
}

// --- how it looks ---

std::vector<PanelCommand> HexPanel::LookCommands() {
  PanelCommand look{.caption = Text::HexLook, .help = Text::HelpHexLook};
  look.entries = LookEntries();
  return {{Id::ShowValues, Text::ValuesAtCursor, Text::HelpValuesAtCursor, "Ctrl+I",
           [this] { ShowValues_Click(); }, [this] { return canvas_->HasImage() && HasRoomForValues(false); },
           [this] { return values_->IsShown(); }},
          {Id::EditValue, Text::EditValue, Text::HelpEditValue, "Ctrl+E", [this] { values_->Edit_Click(); },
           [this] { return canvas_->HasImage() && values_->IsShown(); }},
          look};
}

std::vector<PanelCommand> HexPanel::LookEntries() {
  static constexpr std::pair<int, const char*> widths[] = {{8, " 8"}, {16, " 16"}, {32, " 32"}, {0, ""}};
  static const auto names = [] {
    std::array<std::string, encodingNames.size()> all;
    for (std::size_t i = 0; i < all.size(); ++i) all[i] = " " + std::string(encodingNames[i]);
    return all;
  }();
  const auto change = [this](const auto& edit) {
    return [this, edit] {
      HexLook look = look_;
      edit(look);
      SetLook(look);
    };
  };
  std::vector<PanelCommand> entries;
  int width = Id::FirstColumns;
  for (const auto& [bytes, end] : widths)
    entries.push_back({width++,
                       bytes > 0 ? Text::BytesInRow : Text::BytesInRowFit,
                       Text::HelpBytesInRow,
                       "",
                       change([bytes = bytes](HexLook& look) { look.bytes = bytes; }),
                       Any(),
                       [this, bytes = bytes] { return look_.bytes == bytes; },
                       {},
                       end});
  entries.push_back({});
  for (std::size_t i = 0; i < names.size(); ++i) {
    const auto encoding = static_cast<TextEncoding>(i);
    entries.push_back({Id::FirstEncoding + static_cast<int>(i),
                       Text::ShowTextAs,
                       Text::HelpShowTextAs,
                       "",
                       change([encoding](HexLook& look) { look.encoding = encoding; }),
                       Any(),
                       [this, encoding] { return look_.encoding == encoding; },
                       {},
                       names[i].c_str()});
  }
  entries.push_back({});
  const auto zoom = [&](int id, Text caption, const char* shortcut, const auto& edit) {
    entries.push_back(Command(id, caption, Text::HelpZoomBytes, shortcut, change(edit)));
  };
  zoom(Id::ZoomIn, Text::ZoomIn, "Ctrl++", [](HexLook& look) { ++look.zoom; });
  zoom(Id::ZoomOut, Text::ZoomOut, "Ctrl+-", [](HexLook& look) { --look.zoom; });
  zoom(Id::UsualSize, Text::UsualSize, "Alt+0", [](HexLook& look) { look.zoom = 0; });
  entries.push_back({});
  entries.push_back({Id::MapColours, Text::MapColours, Text::HelpMapColours, "",
                     [this] { MapColours_Click(); }, Any(),
                     [this] { return look_.mapColours && canvas_->Map(); }});
  entries.push_back({Id::ShowOther, Text::ShowOther, Text::HelpShowOther, "",
                     change([](HexLook& look) { look.showsOther = !look.showsOther; }),
                     [this] { return canvas_->HasImage() && bench_.frame.Other().image; },
                     [this] { return look_.showsOther; }});
  return entries;
}

// When the list appears, it gets the keyboard.
void HexPanel::ShowValues_Click() {
  HexLook look = look_;
  look.showsValues = valuesFirst_ = !values_->IsShown();
  SetLook(look);
  if (values_->IsShown())
    values_->SetFocus();
  else
    canvas_->SetFocus();
}

// Makes the map if nobody has asked for it yet. If the user stops that, nothing changes.
void HexPanel::MapColours_Click() {
  HexLook look = look_;
  look.mapColours = !look.mapColours || !canvas_->Map();
  if (look.mapColours) try {
      SearchProgress progress(bench_);
      (void)bench_.document.Map(progress);
    } catch (const std::length_error&) {
      bench_.talk.Complain(Text::TooManyBlocks);
    }
  SetLook(look);
}

// --- searching ---

void HexPanel::Find_Click() {
  bar_->Show();
  Window().Layout();
  bar_->Start(canvas_->CursorInText());
}

void HexPanel::Step_Click(bool isNext) {
  if (!search_.HasQuery()) return Find_Click();
  if (isNext)
    search_.Next();
  else
    search_.Previous();
}

// --- selecting ---

void HexPanel::SelectAll_Click() {
  if (wxTextCtrl* field = FocusedField())
    field->SelectAll();
  else
    canvas_->SelectAll();
}

void HexPanel::SelectRegion_Click() {
  const Region range = canvas_->Selection();
  const auto answer =
      bench_.talk.Ask(Text::AskRegion, RegionText(Image(), {range.offset, std::max<Offset>(1, range.size)}));
  if (!answer) return;
  try {
    const auto region = ReadRegion(*answer, bench_.document.Get());
    if (!region) return bench_.talk.Complain(Text::DataOutsideImage);
    canvas_->Go(region->offset, region->size);
  } catch (const std::invalid_argument&) {
    bench_.talk.Complain(Wx(bench_.texts.MsgS(Text::NotANumber, *answer)));
  } catch (const std::overflow_error&) {
    bench_.talk.Complain(Wx(bench_.texts.MsgS(Text::NumberTooLarge, *answer)));
  }
}

// Goes round at the end of the image, as the search does.
void HexPanel::StepToChange(bool isNext) {
  const std::vector<Change> changes = bench_.document.Edits().Changes(Image());
  if (changes.empty()) return bench_.talk.Tell(Wx(bench_.texts.Msg(Text::NothingChanged)));
  const Offset here = canvas_->Selection().offset;
  auto change = isNext ? std::ranges::upper_bound(changes, here, {}, &Change::offset)
                       : std::ranges::lower_bound(changes, here, {}, &Change::offset);
  if (isNext && change == changes.end()) change = changes.begin();
  if (!isNext) change = std::prev(change == changes.begin() ? changes.end() : change);
  canvas_->Go(change->offset, change->Size());
}

void HexPanel::StepToName(bool isNext) {
  const Names& names = bench_.document.PlaceNames();
  const std::size_t count = names.Count();
  const std::uint32_t here = Image().PhoneAddress(canvas_->Selection().offset);
  std::size_t i = names.From(isNext ? here + 1 : here);
  for (std::size_t tried = 0; tried < count; ++tried) {
    i = isNext ? (i < count ? i : 0) : (i > 0 ? i : count) - 1;
    if (const auto offset = OffsetOf(Image(), names[i].address)) return canvas_->Go(*offset, 0);
    if (isNext) ++i;
  }
  bench_.talk.Tell(Wx(bench_.texts.Msg(Text::NoNames)));
}

}  // namespace tarvelo
