#include "shell/code/code_panel.h"

#include <wx/panel.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "code/masked_pattern.h"
#include "core/notation.h"
#include "core/places.h"
#include "document/dpp_text.h"
#include "document/what_lies.h"
#include "patch/pattern_walk.h"
#include "resources/texts.h"
#include "shell/base/strings.h"
#include "shell/code/code_canvas.h"
#include "shell/platform/accessible_name.h"
#include "shell/services/clipboard.h"
#include "shell/services/dump_files.h"
#include "shell/services/edit_commands.h"
#include "shell/services/ids.h"
#include "shell/services/place_commands.h"
#include "shell/services/search_progress.h"
#include "shell/services/status_bar.h"
#include "shell/services/talk.h"
#include "shell/view/place_line.h"

namespace tarvelo {
namespace {

constexpr Offset copyLimit = 0x20000;    // rows
constexpr Offset patternLimit = 0x1000;  // bytes

}  // namespace

CodePanel::CodePanel(Workbench& bench)
    : Panel({.menuEntry = Id::CodeView, .name = Text::Code, .saveTextCaption = Text::SaveCodeAsText}),
      bench_(bench),
      commands_(MakeCommands()),
      window_(new wxPanel(&bench.frame.Parent())),
      place_(new PlaceLine(window_, bench, ColonForm::Segment)),
      canvas_(new CodeCanvas(window_)),
      information_(new wxStaticText(window_, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize,
                                    wxST_ELLIPSIZE_END | wxST_NO_AUTORESIZE)) {
  Layout();
  Bind();
  watch_ = bench.document.OnChange([this] {
    isLearnt_ = false;
    Renew();
  });
  nameWatch_ = bench.document.OnNames([this] { Renew(); });
}

void CodePanel::Layout() {
  const int gap = window_->FromDIP(6);
  auto* all = new wxBoxSizer(wxVERTICAL);
  all->Add(place_, 0, wxEXPAND | wxALL, gap);
  all->Add(canvas_, 1, wxEXPAND);
  all->Add(information_, 0, wxEXPAND | wxALL, gap);
  window_->SetSizer(all);
}

void CodePanel::Bind() {
  place_->from = [this] { return Here(); };
  place_->onGo = [this](Offset offset) {
    bench_.frame.ShowCode(offset, 0);
    canvas_->SetFocus();
  };
  canvas_->onSelect = [this] { ShowInformation(); };
  canvas_->onFollow = [this] { bench_.frame.Run(Id::FollowTarget); };
  canvas_->onContextMenu = [this](const wxPoint& place) { bench_.frame.PopUpCommands(place); };
  window_->Bind(wxEVT_CHAR_HOOK, [this](wxKeyEvent& event) {
    const bool copy = event.GetModifiers() == wxMOD_CONTROL && event.GetKeyCode() == 'C';
    if (copy && canvas_->HasFocus())
      bench_.frame.Run(Id::CopyText);
    else if (event.GetKeyCode() == WXK_ESCAPE && !canvas_->HasFocus())
      canvas_->SetFocus();
    else
      event.Skip();
  });
  bench_.frame.AcceptDrops(*canvas_);
}

wxWindow& CodePanel::Window() { return *window_; }

wxWindow& CodePanel::FirstFocus() { return *canvas_; }

// --- the view ---

void CodePanel::Build() {
  if (!bench_.document.Image().PageMode()) return ShowInformation();
  if (!view_ || isStale_) ShowView();
  if (!isLearnt_)
    window_->CallAfter([this] {
      if (!isLearnt_ && bench_.document.IsOpen() && window_->IsShown())
        bench_.talk.Guard(Wx(bench_.texts.Msg(Text::Code)), [this] { LearnMore(); });
    });
}

// Makes the view of what is known so far.
void CodePanel::ShowView() {
  Document& document = bench_.document;
  auto view = std::make_unique<const CodeView>(document.Get(), bench_.texts, document.KnownFunctions(),
                                               document.KnownMap(), document.Dpps());
  if (view_)
    canvas_->ReplaceView(view.get());
  else
    canvas_->SetView(view.get(), &document.Edits());
  view_ = std::move(view);
  isStale_ = false;
  ShowInformation();
}

void CodePanel::LearnMore() {
  isLearnt_ = true;  // also if it fails, which is then not tried again
  try {
    SearchProgress progress(bench_);
    (void)bench_.document.Map(progress);
  } catch (const Stopped&) {
    // shows what is known so far
  } catch (const std::length_error&) {
    SearchProgress progress(bench_);
    (void)bench_.document.Functions(progress);  // without the map, data stays unknown
  }
  if (view_) ShowView();
}

void CodePanel::Renew() {
  isStale_ = true;
  if (bench_.frame.IsVisible(*this)) Build();
}

void CodePanel::Clear() {
  canvas_->SetView(nullptr, nullptr);
  view_.reset();
  isLearnt_ = false;
  isStale_ = false;
  place_->ClearFault();
  ShowInformation();
}

void CodePanel::Go(Offset offset, Offset size) {
  if (view_) canvas_->Go(offset, size);
}

Offset CodePanel::Here() const { return view_ ? canvas_->At() : 0; }

bool CodePanel::StartGoTo() {
  if (!view_) return false;
  place_->Start();
  return true;
}

void CodePanel::Return(Offset here) {
  if (view_ && here <= bench_.document.Image().ffEnd()) Go(here, 0);
}

void CodePanel::Recaption(const Messages& messages) {
  place_->Recaption(messages);
  platform::SetAccessibleName(*canvas_, Wx(messages.Msg(Traits().name)));
  canvas_->SetCaptions({Wx(messages.Msg(Text::ColumnOffset)), Wx(messages.Msg(Text::ColumnAddress)),
                        Wx(messages.Msg(Text::ColumnBytes)), Wx(messages.Msg(Text::ColumnInstruction)),
                        Wx(messages.Msg(Text::ColumnWhatLiesThere))});
  ShowInformation();
  window_->Layout();
}

void CodePanel::ShowInformation() {
  const Messages& texts = bench_.texts;
  std::string text;
  if (view_) {
    const Fullflash& image = bench_.document.Image();
    const Offset at = canvas_->At();
    text = texts.Label(Text::ColumnOffset) + " " + OffsetText(image, at) + "    " +
           texts.Label(Text::PhoneAddress) + " " + SegmentText(image, at) + " = " + AddressText(image, at);
    const std::string function = view_->Reader().FunctionAt(at);
    text += "    " + (function.empty() ? WhatLiesText(bench_.document, at, texts) : function);
    if (const std::string line = view_->Reader().Read(canvas_->CursorRow()).Text(); !line.empty())
      text += "    " + line;
  } else if (bench_.document.IsOpen() && !bench_.document.Image().PageMode()) {
    text = texts.Msg(Text::NoCodeInLargeImage);
  }
  information_->SetLabelText(Wx(text));
  platform::SetAccessibleName(*information_, Wx(text));
}

// --- texts ---

std::string CodePanel::RowText(Offset row, bool withBytes) const {
  const Fullflash& image = bench_.document.Image();
  const CodeRow place = view_->Rows().At(row);
  const CodeLine line = view_->Reader().Read(row);
  if (place.kind == CodeRow::Kind::Heading)
    return line.Text() + (line.meaning.empty() ? "" : "  " + line.meaning);
  std::string text = OffsetText(image, place.offset) + "  " + SegmentText(image, place.offset) + "  ";
  if (withBytes) {
    std::string bytes;
    for (int i = 0; i < place.size; ++i) bytes += HexOfByte(image.Byte(place.offset + i));
    bytes.resize(std::max<std::size_t>(bytes.size(), 8), ' ');
    text += bytes + "  ";
  }
  text += line.Text();
  return line.meaning.empty() ? text : text + "  ; " + line.meaning;
}

std::string CodePanel::RowsText(const Region& rows, bool withBytes) const {
  std::string text;
  for (Offset row = rows.offset; row < rows.End(); ++row) text += RowText(row, withBytes) + "\n";
  return text;
}

// The selected rows; otherwise the function that the cursor is in.
Region CodePanel::RowsToSave() const {
  const CodeRows& rows = view_->Rows();
  const Region chosen = canvas_->ChosenRows();
  const Function* function = view_->Functions().At(canvas_->At());
  if (chosen.size > 1 || !function) return chosen;
  const Offset first = rows.RowOf(function->code.offset);
  return {first, rows.RowOf(function->code.End() - 1) - first + 1};
}

void CodePanel::Save() {
  if (!view_) return bench_.talk.Complain(Text::NoDataToSave);
  const Region rows = RowsToSave();
  const Offset start = view_->Rows().At(rows.offset).offset;
  const std::filesystem::path file =
      bench_.document.Beside("_" + OffsetText(bench_.document.Image(), start) + ".asm.txt");
  ReplaceFile(file, [&](const TextSink& write) {
    for (Offset row = rows.offset; row < rows.End(); ++row) write(RowText(row, true) + CrLf);
  });
  bench_.talk.Tell(Wx(bench_.texts.MsgS(Text::FileSaved, PathText(file.filename()))), file);
}

// --- commands ---

PanelCommands CodePanel::MakeCommands() {
  const auto any = [this] { return view_ != nullptr; };
  const auto chosen = [this]() -> std::optional<Region> {
    if (!view_) return {};
    return canvas_->Chosen();
  };
  std::vector<PanelCommand> commands = {{Id::FollowTarget,
                                         Text::FollowTarget,
                                         Text::HelpFollowTarget,
                                         "",
                                         [this] { Follow_Click(); },
                                         any,
                                         {},
                                         {},
                                         " (Enter)"}};
  Append(commands, PlaceCommands(bench_, chosen, Id::OpenCode));
  Append(commands, {{Id::ShowFunctions, Text::Functions, Text::HelpFunctions, "Ctrl+Shift+D",
                     [this] { bench_.frame.ShowFunctions(canvas_->At()); }, any}});
  Append(commands, CopyCommands());
  Append(commands,
         {{Id::StateDpps, Text::StateDpps, Text::HelpStateDpps, "", [this] { StateDpps_Click(); }, any}});
  Append(commands, EditCommands(bench_));
  return PanelCommands(std::move(commands), Id::FollowTarget);
}

std::vector<PanelCommand> CodePanel::CopyCommands() {
  const auto any = [this] { return view_ != nullptr; };
  return {{Id::CopyText,
           Text::CopyInstructions,
           Text::HelpCopyInstructions,
           "",
           [this] { CopyText_Click(false); },
           any,
           {},
           {},
           " (Ctrl+C)"},
          {Id::CopyWithBytes, Text::CopyWithBytes, Text::HelpCopyInstructions, "Ctrl+Shift+C",
           [this] { CopyText_Click(true); }, any},
          {Id::CopyOffset, Text::CopyOffset, Text::HelpCopyNumber, "",
           [this] { Copy(OffsetText(bench_.document.Image(), canvas_->At())); }, any},
          {Id::CopyAddress, Text::CopyAddress, Text::HelpCopyNumber, "",
           [this] { Copy(SegmentText(bench_.document.Image(), canvas_->At())); }, any},
          {Id::CopyPagePointer, Text::CopyPagePointer, Text::HelpCopyPointer, "",
           [this] { CopyPointer_Click(true); }, any},
          {Id::CopySegmentPointer, Text::CopySegmentPointer, Text::HelpCopyPointer, "",
           [this] { CopyPointer_Click(false); }, any},
          {Id::CopyAsPattern, Text::CopyAsPattern, Text::HelpCopyAsPattern, "",
           [this] { CopyAsPattern_Click(); }, any},
          {Id::FindAlike, Text::FindAlike, Text::HelpFindAlike, "Ctrl+Shift+N", [this] { FindAlike_Click(); },
           any},
          {Id::SelectAll, Text::SelectAll, Text::HelpSelectAll, "Ctrl+A",
           [this] {
             if (place_->Field().HasFocus())
               place_->Field().SelectAll();
             else
               canvas_->SelectAll();
           },
           any}};
}

void CodePanel::Follow_Click() {
  const auto target = view_->Reader().Read(canvas_->CursorRow()).target;
  if (target)
    bench_.frame.ShowCode(*target, 0);
  else
    bench_.status.ShowHelp(Wx(bench_.texts.Msg(Text::NoTarget)));
}

void CodePanel::CopyText_Click(bool withBytes) {
  const Region rows = canvas_->ChosenRows();
  if (rows.size > copyLimit) return bench_.talk.ComplainOfSize(Text::CopyInstructions, rows.size, copyLimit);
  Copy(RowsText(rows, withBytes));
}

void CodePanel::CopyPointer_Click(bool isPage) {
  const std::uint32_t address = bench_.document.Image().PhoneAddress(canvas_->At());
  const auto word = [](std::uint32_t value) { return Word2Str(static_cast<std::int32_t>(value)); };
  Copy(isPage ? Adr2Str(static_cast<std::int32_t>(address)) : word(address & 0xFFFF) + word(address >> 16));
}

void CodePanel::CopyAsPattern_Click() {
  const Region chosen = canvas_->Chosen();
  if (chosen.size > patternLimit)
    return bench_.talk.ComplainOfSize(Text::CopyAsPattern, chosen.size, patternLimit);
  Copy(MaskedPattern(bench_.document.Image().ff(), chosen));
}

// Goes round at the end of the image.
void CodePanel::FindAlike_Click() {
  const Fullflash& image = bench_.document.Image();
  const Region chosen = canvas_->Chosen();
  if (chosen.size > patternLimit)
    return bench_.talk.ComplainOfSize(Text::FindAlike, chosen.size, patternLimit);
  const Pattern pattern(MaskedPattern(image.ff(), chosen));
  const auto next = [&](Offset from) {
    Offset hit = FirstFrom(image, pattern, from);
    while (hit >= 0 && hit % 2 != 0) hit = FirstFrom(image, pattern, hit + 1);
    return hit;
  };
  Offset hit = next(chosen.offset + 1);
  if (hit < 0) hit = next(0);
  if (hit < 0 || hit == chosen.offset) return bench_.talk.Tell(Wx(bench_.texts.Msg(Text::NothingAlike)));
  bench_.frame.ShowCode(hit, chosen.size);
}

void CodePanel::StateDpps_Click() {
  Document& document = bench_.document;
  const auto answer = bench_.talk.AskLine(Text::AskDpps, DppText(document.Dpps()));
  if (!answer) return;
  try {
    document.StateDpps(ReadDpps(*answer));
  } catch (const std::invalid_argument&) {
    bench_.talk.Complain(Wx(bench_.texts.MsgS(Text::NotANumber, *answer)));
  } catch (const std::overflow_error&) {
    bench_.talk.Complain(Wx(bench_.texts.MsgS(Text::NumberTooLarge, *answer)));
  }
}

}  // namespace tarvelo
