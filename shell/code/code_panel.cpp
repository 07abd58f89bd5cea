#include "shell/code/code_panel.h"

#include <wx/sizer.h>

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "core/places.h"
#include "document/what_lies.h"
#include "patch/pattern.h"
#include "resources/texts.h"
#include "shell/base/splitter.h"
#include "shell/base/strings.h"
#include "shell/code/code_canvas.h"
#include "shell/code/function_side.h"
#include "shell/services/dump_files.h"
#include "shell/services/ids.h"
#include "shell/services/search_progress.h"
#include "shell/services/status_bar.h"
#include "shell/services/talk.h"

namespace tarvelo {

CodePanel::CodePanel(Workbench& bench)
    : ImagePanel(bench,
                 {.menuEntry = Id::CodeView, .name = Text::Code, .saveTextCaption = Text::SaveCodeAsText},
                 ColonForm::Segment),
      commands_(MakeCommands()),
      body_(NewSplitter(Window())),
      canvas_(new CodeCanvas(body_)),
      side_(new FunctionSide(body_, bench.texts)) {
  auto* content = new wxBoxSizer(wxVERTICAL);
  content->Add(body_, 1, wxEXPAND);
  Arrange(*canvas_, content);
  BindSide();
  canvas_->onSelect = [this] { CursorMoved(); };
  canvas_->onFollow = [this] { bench_.frame.Run(Id::FollowTarget); };
  watch_ = bench.document.OnChange([this] {
    isLearnt_ = false;
    Renew();
  });
  nameWatch_ = bench.document.OnNames([this] { Renew(); });
}

void CodePanel::GoTo(Offset offset) { bench_.frame.ShowCode(offset, 0); }

int CodePanel::CopyCommand() const { return Id::CopyText; }

// --- the functions beside the code ---

void CodePanel::BindSide() {
  body_->SetMinimumPaneSize(body_->FromDIP(120));
  side_->Hide();
  body_->Initialize(canvas_);
  side_->onChoose = [this](const Function& function) { Browse(function); };
  side_->onActivate = [this](const Function& function) {
    bench_.frame.ShowCode(function.code.offset, 0);
    canvas_->SetFocus();
  };
  canvas_->Bind(wxEVT_SET_FOCUS, [this](wxFocusEvent& event) {
    isBrowsing_ = false;
    event.Skip();
  });
}

bool CodePanel::IsSideShown() const { return body_->IsSplit(); }

void CodePanel::ShowSide(bool show) {
  if (show && !body_->IsSplit()) {
    body_->SplitVertically(side_, canvas_, std::min(body_->FromDIP(280), body_->GetSize().x / 3));
    side_->Follow(view_ ? canvas_->At() : 0);
  } else if (!show && body_->IsSplit()) {
    body_->Unsplit(side_);
    canvas_->SetFocus();
  }
}

// One step back leads to where the user began to go through the list.
void CodePanel::Browse(const Function& function) {
  if (std::exchange(isBrowsing_, true))
    Go(function.code.offset, 0);
  else
    bench_.frame.ShowCode(function.code.offset, 0);
}

void CodePanel::CursorMoved() {
  Place().ClearFault();
  ShowInformation();
  if (view_ && IsSideShown()) side_->Follow(canvas_->At());
}

// --- the view ---

void CodePanel::Build() {
  if (!bench_.document.Image().PageMode()) return ShowInformation();
  if (!view_ || isStale_) ShowView();
  if (!isLearnt_)
    Window().CallAfter([this] {
      if (!isLearnt_ && bench_.document.IsOpen() && Window().IsShown())
        bench_.talk.Guard(Wx(bench_.texts.Msg(Text::Code)), [this] { LearnMore(); });
    });
}

// Makes the view of what is known so far.
void CodePanel::ShowView() {
  Document& document = bench_.document;
  auto view = std::make_unique<const CodeView>(document.Get(), bench_.texts, document.KnownFunctions(),
                                               document.KnownMap(), document.Dpps());
  const auto old = std::exchange(view_, std::move(view));  // the canvas still compares with it
  if (old)
    canvas_->ReplaceView(view_.get());
  else
    canvas_->SetView(view_.get(), &document.Edits());
  side_->SetView(view_.get());
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
  side_->SetView(nullptr);
  view_.reset();
  isLearnt_ = false;
  isStale_ = false;
  Place().ClearFault();
  ShowInformation();
}

void CodePanel::Go(Offset offset, Offset size) {
  if (view_) canvas_->Go(offset, size);
}

Offset CodePanel::Here() const { return view_ ? canvas_->At() : 0; }

void CodePanel::Return(Offset here) {
  if (view_ && here <= bench_.document.Image().ffEnd()) Go(here, 0);
}

void CodePanel::Recaption(const Messages& messages) {
  ImagePanel::Recaption(messages);
  side_->Recaption(messages);
  canvas_->SetCaptions({Wx(messages.Msg(Text::ColumnOffset)), Wx(messages.Msg(Text::ColumnAddress)),
                        Wx(messages.Msg(Text::ColumnBytes)), Wx(messages.Msg(Text::ColumnInstruction)),
                        Wx(messages.Msg(Text::ColumnWhatLiesThere))});
}

std::string CodePanel::InformationText() const {
  if (!view_) {
    const bool isLarge = bench_.document.IsOpen() && !bench_.document.Image().PageMode();
    return isLarge ? std::string(bench_.texts.Msg(Text::NoCodeInLargeImage)) : std::string();
  }
  const Messages& texts = bench_.texts;
  const Fullflash& image = bench_.document.Image();
  const Offset at = canvas_->At();
  std::string text = texts.Label(Text::ColumnOffset) + " " + OffsetText(image, at) + "    " +
                     texts.Label(Text::PhoneAddress) + " " + SegmentText(image, at) + " = " +
                     AddressText(image, at);
  const std::string function = view_->Reader().FunctionAt(at);
  text += "    " + (function.empty() ? WhatLiesText(bench_.document, at, texts) : function);
  if (const std::string line = view_->Reader().Read(canvas_->CursorRow()).Text(); !line.empty())
    text += "    " + line;
  return text;
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
    std::string bytes = HexOfBytes(image.Region(place.offset, place.size));
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

}  // namespace tarvelo
