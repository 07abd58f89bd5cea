#include "shell/hex/hex_panel.h"

#include <wx/choice.h>
#include <wx/panel.h>
#include <wx/settings.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include <algorithm>
#include <stdexcept>

#include "patch/pattern_walk.h"
#include "shell/hex/hex_canvas.h"
#include "shell/frame/main.h"
#include "shell/platform/accessible_name.h"
#include "shell/base/strings.h"

namespace tarvelo {
namespace {

constexpr Offset copyLimit = 0x100000;  // bytes; as text they become several times as much
constexpr unsigned long placeLength = 40;

// The window colour with some red in it.
wxColour FaultColour() {
  const wxColour window = wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOW);
  const auto mix = [](unsigned char part, unsigned char red) { return wxColour::AlphaBlend(part, red, 0.7); };
  return {mix(window.Red(), 0xFF), mix(window.Green(), 0x40), mix(window.Blue(), 0x40)};
}

}  // namespace

HexPanel::HexPanel(Main& main)
    : Panel({.menuEntry = HexView, .name = Text::HexView, .saveTextCaption = Text::SaveSelectedBytes}),
      main_(main),
      commands_(MakeCommands()),
      window_(new wxPanel(&main)),
      caption_(new wxStaticText(window_, wxID_ANY, wxString())),
      place_(new wxTextCtrl(window_, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize,
                            wxTE_PROCESS_ENTER)),
      kind_(new wxChoice(window_, wxID_ANY)),
      fault_(new wxStaticText(window_, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize,
                              wxST_ELLIPSIZE_END | wxST_NO_AUTORESIZE)),
      canvas_(new HexCanvas(window_)),
      editor_(main, *canvas_),
      information_(new wxStaticText(window_, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize,
                                    wxST_ELLIPSIZE_END | wxST_NO_AUTORESIZE)) {
  place_->SetMaxLength(placeLength);
  Layout();
  Bind();
}

void HexPanel::Layout() {
  const int gap = window_->FromDIP(6);
  auto* line = new wxBoxSizer(wxHORIZONTAL);
  line->Add(caption_, 0, wxALIGN_CENTRE_VERTICAL | wxRIGHT, gap);
  line->Add(place_, 1, wxALIGN_CENTRE_VERTICAL | wxRIGHT, gap);
  line->Add(kind_, 0, wxALIGN_CENTRE_VERTICAL | wxRIGHT, gap);
  line->Add(fault_, 1, wxALIGN_CENTRE_VERTICAL);
  auto* all = new wxBoxSizer(wxVERTICAL);
  all->Add(line, 0, wxEXPAND | wxALL, gap);
  all->Add(canvas_, 1, wxEXPAND);
  all->Add(information_, 0, wxEXPAND | wxALL, gap);
  window_->SetSizer(all);
}

void HexPanel::Bind() {
  place_->Bind(wxEVT_TEXT_ENTER, [this](wxCommandEvent&) { GoToPlace(); });
  place_->Bind(wxEVT_TEXT, [this](wxCommandEvent& event) {
    ShowFault(wxString());
    event.Skip();
  });
  kind_->Bind(wxEVT_CHOICE, [this](wxCommandEvent&) { ShowFault(wxString()); });
  canvas_->onSelect = [this] { ShowInformation(); };
  canvas_->onContextMenu = [this] { main_.PopUpCommands(); };
  window_->Bind(wxEVT_CHAR_HOOK, [this](wxKeyEvent& event) {
    const bool copy = event.GetModifiers() == wxMOD_CONTROL && event.GetKeyCode() == 'C';
    if (copy && canvas_->HasFocus())
      main_.Run(CopyHex);
    else if (event.GetKeyCode() == WXK_ESCAPE && !canvas_->HasFocus())
      canvas_->SetFocus();
    else
      event.Skip();
  });
  main_.AcceptDrops(*canvas_);
}

wxWindow& HexPanel::Window() { return *window_; }

wxWindow& HexPanel::FirstFocus() { return *canvas_; }

const Fullflash& HexPanel::Image() const { return main_.Open().image; }

void HexPanel::Build() {
  if (!canvas_->HasImage()) canvas_->SetImage(&Image(), &main_.Open().edits);
  ShowInformation();
}

void HexPanel::Clear() {
  canvas_->SetImage(nullptr, nullptr);
  ShowFault(wxString());
  ShowInformation();
}

void HexPanel::ImageChanged() {
  canvas_->ImageChanged();
  ShowInformation();
}

void HexPanel::Save() {
  const ByteRange range = canvas_->Selection();
  if (range.size == 0) return main_.Complain(Wx(main_.Texts().Msg(Text::NoDataToSave)));
  const std::filesystem::path file = main_.Open().Beside("_" + OffsetText(Image(), range.start) + ".bin");
  ReplaceFile(file, Image().Region(range.start, range.size));
  main_.Tell(Wx(main_.Texts().MsgS(Text::FileSaved, PathText(file.filename()))), file);
}

void HexPanel::Recaption(const Messages& messages) {
  caption_->SetLabel(Wx(messages.Label(Text::GoTo)));
  const wxString hint = Wx(messages.Msg(Text::GoToHint));
  place_->SetHint(hint);
  place_->SetToolTip(hint);
  platform::SetAccessibleName(*place_, hint);
  const int needed = place_->GetTextExtent(hint).x + window_->FromDIP(24);
  place_->SetMinSize(wxSize(std::min(needed, window_->FromDIP(380)), -1));
  platform::SetAccessibleName(*canvas_, Wx(messages.Msg(Traits().name)));
  platform::SetAccessibleName(*kind_, Wx(messages.Msg(Text::GoTo)));
  const int kind = std::max(0, kind_->GetSelection());
  kind_->Set({Wx(messages.Msg(Text::ColumnOffset)), Wx(messages.Msg(Text::PhoneAddress))});
  kind_->SetSelection(kind);
  ShowFault(wxString());
  ShowInformation();
  window_->Layout();
}

void HexPanel::Go(Offset start, Offset size) { canvas_->Go(start, size); }

// --- the line above ---

void HexPanel::GoToPlace() {
  if (!canvas_->HasImage()) return;
  const std::string text = Utf8(place_->GetValue());
  const auto kind = kind_->GetSelection() == 1 ? PlaceKind::AsAddress : PlaceKind::AsOffset;
  try {
    const auto offset = ReadPlace(text, kind, Image());
    if (!offset) return ShowFault(Wx(main_.Texts().Msg(Text::DataOutsideImage)));
    ShowFault(wxString());
    Go(*offset, 0);
    canvas_->SetFocus();
  } catch (const std::invalid_argument&) {
    ShowFault(Wx(main_.Texts().MsgS(Text::NotANumber, text)));
  } catch (const std::overflow_error&) {
    ShowFault(Wx(main_.Texts().MsgS(Text::NumberTooLarge, text)));
  }
}

// Says beside the line what is wrong with it; an empty text: nothing is.
void HexPanel::ShowFault(const wxString& text) {
  if (fault_->GetLabelText() == text) return;
  fault_->SetLabelText(text);
  fault_->SetToolTip(text);
  place_->SetBackgroundColour(text.empty() ? wxNullColour : FaultColour());
  place_->Refresh();
}

// --- the line below ---

void HexPanel::ShowInformation() { information_->SetLabelText(Wx(InformationText())); }

std::string HexPanel::InformationText() const {
  if (!canvas_->HasImage()) return {};
  const Messages& texts = main_.Texts();
  const ByteRange range = canvas_->Selection();
  std::string text = texts.Label(Text::ColumnOffset) + " " + OffsetText(Image(), range.start);
  text.append("    ").append(texts.Label(Text::PhoneAddress)) += " " + AddressText(Image(), range.start);
  if (range.size > 0) text.append("    ").append(texts.Msg(Text::SelectedBytesLabel)) += std::to_string(range.size);
  return text + "    " + Reading(Image(), range.start);
}

// --- commands ---

PanelCommands HexPanel::MakeCommands() {
  std::vector<PanelCommand> commands = SearchCommands();
  for (PanelCommand& command : EditCommands()) commands.push_back(std::move(command));
  return PanelCommands(std::move(commands));
}

std::vector<PanelCommand> HexPanel::SearchCommands() {
  const auto any = [this] { return canvas_->HasImage(); };
  return {
      {.id = GoTo,
       .message = Text::GoTo,
       .help = Text::HelpGoTo,
       .shortcut = "Ctrl+L",
       .run = [this] { GoTo_Click(); },
       .enabled = any},
      {},
      {.id = FindBytes,
       .message = Text::SearchForBytes,
       .help = Text::HelpSearchNextBytes,
       .shortcut = "Ctrl+F",
       .run = [this] { FindBytes_Click(); },
       .enabled = any},
      {.id = FindNext,
       .message = Text::SearchAgain,
       .help = Text::HelpNext,
       .shortcut = "F3",
       .run = [this] { FindNext_Click(); },
       .enabled = any},
      {.id = FindPrevious,
       .message = Text::PreviousHit,
       .help = Text::HelpPrevious,
       .shortcut = "Shift+F3",
       .run = [this] { FindPrevious_Click(); },
       .enabled = any},
      {},
      {.id = CopyHex, .message = Text::CopyAsHex, .help = Text::HelpCopyAsHex, .run = [this] { CopyHex_Click(); }, .enabled = any},
      {.id = CopyText, .message = Text::CopyAsText, .help = Text::HelpCopyAsText, .run = [this] { CopyText_Click(); }, .enabled = any},
      {.id = CopyOffset, .message = Text::CopyOffset, .help = Text::HelpCopyNumber, .run = [this] { CopyOffset_Click(); }, .enabled = any},
      {},
      {.id = SelectBytes,
       .message = Text::SelectAll,
       .help = Text::HelpSelectAll,
       .shortcut = "Ctrl+A",
       .run = [this] { SelectBytes_Click(); },
       .enabled = any}};
}

std::vector<PanelCommand> HexPanel::EditCommands() {
  const auto any = [this] { return canvas_->HasImage(); };
  const auto canUndo = [this] { return place_->HasFocus() ? place_->CanUndo() : editor_.CanUndo(); };
  const auto canRedo = [this] { return place_->HasFocus() ? place_->CanRedo() : editor_.CanRedo(); };
  const auto selected = [this] { return canvas_->Selection().size > 0; };
  return {
      {.id = SwitchSide,
       .message = Text::SwitchHexText,
       .help = Text::HelpSwitchHexText,
       .shortcut = "F2",
       .run = [this] { canvas_->SwitchSide(); },
       .enabled = any},
      {},
      {.id = UndoBytes,
       .message = Text::Undo,
       .help = Text::HelpUndo,
       .shortcut = "Ctrl+Z",
       .run = [this] { UndoBytes_Click(); },
       .enabled = canUndo},
      {.id = RedoBytes,
       .message = Text::Redo,
       .help = Text::HelpRedo,
       .shortcut = "Ctrl+Y",
       .run = [this] { RedoBytes_Click(); },
       .enabled = canRedo},
      {.id = PasteHex,
       .message = Text::Paste,
       .help = Text::HelpPasteHex,
       .shortcut = "Ctrl+V",
       .run = [this] { PasteHex_Click(); },
       .enabled = any},
      {.id = FillBytes, .message = Text::FillWithByte, .help = Text::HelpFillWithByte, .run = [this] { editor_.Fill(); }, .enabled = selected},
      {},
      {.id = ChangesToPatch,
       .message = Text::ChangesToPatch,
       .help = Text::HelpAddToPatch,
       .run = [this] { editor_.ChangesToPatch(); },
       .enabled = any}};
}

void HexPanel::GoTo_Click() {
  place_->SetFocus();
  place_->SelectAll();
}

Bytes HexPanel::BytesToCopy() {
  const ByteRange range = canvas_->Selection();
  if (range.size > copyLimit) {
    const std::string sizes = std::to_string(range.size) + " > " + std::to_string(copyLimit);
    main_.Complain(Wx(std::string(main_.Texts().Msg(Text::SelectedBytesLabel)) + sizes));
    return {};
  }
  return Image().ff().subspan(static_cast<std::size_t>(range.start),
                              static_cast<std::size_t>(std::max<Offset>(1, range.size)));
}

void HexPanel::CopyHex_Click() {
  if (const Bytes bytes = BytesToCopy(); !bytes.empty()) main_.Copy(AsHex(bytes));
}

void HexPanel::CopyText_Click() {
  if (const Bytes bytes = BytesToCopy(); !bytes.empty()) main_.Copy(AsText(bytes));
}

void HexPanel::CopyOffset_Click() { main_.Copy(OffsetText(Image(), canvas_->Selection().start)); }

// In the line above it is the line's own text that is selected.
void HexPanel::SelectBytes_Click() {
  if (place_->HasFocus())
    place_->SelectAll();
  else
    canvas_->SelectAll();
}

// There too it is the line's own text that is edited.
void HexPanel::UndoBytes_Click() {
  if (place_->HasFocus())
    place_->Undo();
  else
    editor_.Undo();
}

void HexPanel::RedoBytes_Click() {
  if (place_->HasFocus())
    place_->Redo();
  else
    editor_.Redo();
}

void HexPanel::PasteHex_Click() {
  if (place_->HasFocus())
    place_->Paste();
  else
    editor_.Paste();
}

bool HexPanel::AskForPattern() {
  const auto answer = main_.AskPattern();
  if (answer) pattern_ = *answer;
  return answer.has_value();
}

void HexPanel::FindBytes_Click() {
  if (AskForPattern()) FindNext_Click();
}

// From behind the start of the selection, which may be the hit of the last search. A cursor alone may
// stand on a hit that nobody has seen yet.
void HexPanel::FindNext_Click() {
  if (pattern_.empty() && !AskForPattern()) return;
  const Pattern pattern(pattern_);
  const ByteRange range = canvas_->Selection();
  ShowHit(pattern, FirstFrom(Image(), pattern, range.start + (range.size > 0 ? 1 : 0)));
}

void HexPanel::FindPrevious_Click() {
  if (pattern_.empty() && !AskForPattern()) return;
  const Pattern pattern(pattern_);
  ShowHit(pattern, LastBefore(Image(), pattern, canvas_->Selection().start));
}

void HexPanel::ShowHit(const Pattern& pattern, Offset hit) {
  if (hit < 0) return main_.Complain(Wx(NotFound(pattern_, main_.Texts())));
  Go(hit, pattern.PatCount());
}

}  // namespace tarvelo
