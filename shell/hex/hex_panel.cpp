#include "shell/hex/hex_panel.h"

#include <wx/panel.h>
#include <wx/sizer.h>
#include <wx/textctrl.h>

#include <algorithm>
#include <utility>

#include "core/notation.h"
#include "core/places.h"
#include "document/what_lies.h"
#include "resources/texts.h"
#include "shell/base/strings.h"
#include "shell/hex/find_bar.h"
#include "shell/hex/hex_canvas.h"
#include "shell/hex/other_pane.h"
#include "shell/hex/value_panel.h"
#include "shell/services/ids.h"
#include "shell/services/talk.h"

namespace tarvelo {
namespace {

constexpr int roomForRows = 400;  // pixels beside the values at least, at 96 dots per inch

}  // namespace

HexPanel::HexPanel(Workbench& bench)
    : ImagePanel(
          bench,
          {.menuEntry = Id::HexView, .name = Text::HexView, .saveTextCaption = Text::SaveSelectedBytes},
          ColonForm::Page),
      commands_(MakeCommands()),
      look_(ReadLook(bench.settings)),
      canvas_(new HexCanvas(&Window())),
      other_(new OtherPane(&Window(), *canvas_)),
      bar_(new FindBar(&Window())),
      values_(new ValuePanel(&Window(), bench)),
      editor_(bench, *canvas_),
      search_(bench, *canvas_, *bar_),
      copy_(bench, *canvas_) {
  LayOut();
  Bind();
  BindBar();
  ApplyLook();
  watch_ = bench.document.OnChange([this] { ImageChanged(); });
  nameWatch_ = bench.document.OnNames([this] {
    canvas_->Refresh();
    ShowInformation();
  });
}

void HexPanel::LayOut() {
  auto* dumps = new wxBoxSizer(wxVERTICAL);
  dumps->Add(canvas_, 3, wxEXPAND);
  dumps->Add(other_, 2, wxEXPAND);
  auto* row = new wxBoxSizer(wxHORIZONTAL);
  row->Add(dumps, 1, wxEXPAND);
  row->Add(values_, 0, wxEXPAND);
  auto* all = new wxBoxSizer(wxVERTICAL);
  all->Add(bar_, 0, wxEXPAND);
  all->Add(row, 1, wxEXPAND);
  bar_->Hide();
  other_->Hide();
  bar_->MoveBeforeInTabOrder(canvas_);
  Arrange(*canvas_, all);
}

void HexPanel::Bind() {
  canvas_->onSelect = [this] { CursorMoved(); };
  canvas_->SetNames(&bench_.document.PlaceNames());
  const auto zoom = [this](int steps) {
    HexLook look = look_;
    look.zoom += steps;
    SetLook(look);
  };
  for (HexCanvas* canvas : {canvas_, &other_->Canvas()}) canvas->onZoom = zoom;
  other_->Canvas().onContextMenu = [this](const wxPoint& place) { bench_.frame.PopUpCommands(place); };
  canvas_->Bind(wxEVT_CHAR_HOOK, &HexPanel::PressKey, this);
  Window().Bind(wxEVT_SHOW, [this](wxShowEvent& event) {
    if (!event.IsShown()) search_.Forget();
    event.Skip();
  });
  Window().Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
    ShowValues();
    event.Skip();
  });
}

void HexPanel::BindBar() {
  const auto guarded = [this](void (HexSearch::*run)()) {
    return [this, run] {
      if (!canvas_->HasImage()) return;
      bench_.talk.Guard(Wx(bench_.texts.Msg(Text::HexView)), [this, run] { (search_.*run)(); });
    };
  };
  bar_->onNext = guarded(&HexSearch::Next);
  bar_->onPrevious = guarded(&HexSearch::Previous);
  bar_->onAll = guarded(&HexSearch::All);
  bar_->onReplace = guarded(&HexSearch::Replace);
  bar_->onReplaceAll = guarded(&HexSearch::ReplaceAll);
  bar_->onClose = [this] { CloseBar(); };
}

// The keys of editors in which Insert copies and pastes. It cannot switch to inserting.
void HexPanel::PressKey(wxKeyEvent& event) {
  const bool isInsert = event.GetKeyCode() == WXK_INSERT || event.GetKeyCode() == WXK_NUMPAD_INSERT;
  if (!isInsert || !canvas_->HasImage()) return event.Skip();
  if (event.GetModifiers() == wxMOD_CONTROL)
    bench_.frame.Run(CopyCommand());
  else if (event.GetModifiers() == wxMOD_SHIFT)
    bench_.frame.Run(Id::Paste);
  else
    search_.Say(std::string(bench_.texts.Msg(Text::OverwriteOnly)));
}

void HexPanel::GoTo(Offset offset) { bench_.frame.ShowHex(offset, 0); }

int HexPanel::CopyCommand() const { return canvas_->CursorInText() ? Id::CopyText : Id::CopyHex; }

const Fullflash& HexPanel::Image() const { return bench_.document.Image(); }

wxTextCtrl* HexPanel::FocusedField() const {
  auto* field = dynamic_cast<wxTextCtrl*>(wxWindow::FindFocus());
  return field && field->IsEditable() ? field : nullptr;
}

// --- the image ---

void HexPanel::Build() {
  if (!canvas_->HasImage()) canvas_->SetImage(&Image(), &bench_.document.Edits());
  ShowParts();
  ShowMap();
  CursorMoved();
}

void HexPanel::Clear() {
  canvas_->SetImage(nullptr, nullptr);
  other_->Clear();
  other_->Hide();
  values_->Clear();
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

void HexPanel::ImageChanged() {
  canvas_->ImageChanged();
  other_->ImageChanged();
  ReadValues();
  ShowInformation();
}

void HexPanel::CursorMoved() {
  Place().ClearFault();
  other_->Follow();
  ReadValues();
  ShowInformation();
  search_.Forget();
}

// --- the parts around the rows ---

void HexPanel::Recaption(const Messages& messages) {
  bar_->Recaption(messages);
  values_->Recaption(messages);
  other_->Recaption(messages);
  ImagePanel::Recaption(messages);
}

bool HexPanel::HasRoomForValues(bool besideWhole) const {
  const int rows = besideWhole ? canvas_->WholeWidth() : canvas_->FromDIP(roomForRows);
  return canvas_->GetParent()->GetClientSize().x >= values_->GetMinSize().x + rows;
}

void HexPanel::SetLook(const HexLook& look) {
  look_ = look;
  look_.zoom = std::clamp(look.zoom, HexLook::smallest, HexLook::largest);
  StoreLook(bench_.settings, look_);
  ApplyLook();
}

void HexPanel::ApplyLook() {
  canvas_->SetLook(look_);
  other_->SetLook(look_);
  ShowParts();
  ShowMap();
}

void HexPanel::ShowParts() {
  if (canvas_->HasImage() && look_.showsOther)
    other_->ShowDump(bench_.frame.Other(), Image());
  else
    other_->Clear();
  other_->Show(other_->HasDump());
  ShowValues();
  Window().Layout();
}

void HexPanel::ShowValues() {
  const bool mustFit = !valuesFirst_ && look_.bytes > 0;  // 0: the rows become shorter
  if (values_->Show(look_.showsValues && HasRoomForValues(mustFit))) ReadValues();
}

void HexPanel::ReadValues() {
  if (values_->IsShown() && canvas_->HasImage()) values_->Read(canvas_->Selection().offset);
}

// The map of before a change stays until another one is known: typing must not put out the colours.
void HexPanel::ShowMap() {
  if (!look_.mapColours)
    canvas_->SetMap(nullptr);
  else if (auto known = bench_.document.KnownMap())
    canvas_->SetMap(std::move(known));
}

void HexPanel::CloseBar() {
  bar_->Hide();
  Window().Layout();
  canvas_->SetFocus();
}

// --- the line below ---

// "000010-00001F (16-31), 10h (16)"
std::string HexPanel::SelectionText(const Region& range) const {
  return RegionText(Image(), range) + " (" + std::to_string(range.offset) + "-" +
         std::to_string(range.End() - 1) + "), " + Hex(range.size) + "h (" + std::to_string(range.size) + ")";
}

// What is selected comes first, so that it is visible in narrow windows too.
std::string HexPanel::InformationText() const {
  if (!canvas_->HasImage()) return {};
  const Messages& texts = bench_.texts;
  const Region range = canvas_->Selection();
  std::string text = range.size > 0
                         ? std::string(texts.Msg(Text::SelectedBytesLabel)) + SelectionText(range)
                         : texts.Label(Text::ColumnOffset) + " " + OffsetText(Image(), range.offset);
  text.append("    ").append(texts.Label(Text::PhoneAddress)) += " " + AddressText(Image(), range.offset);
  text += "    " + Reading(Image(), range.offset);
  text += "    " + WhatLiesText(bench_.document, range.offset, texts);
  const auto name = bench_.document.PlaceNames().At(Image().PhoneAddress(range.offset));
  if (name)
    text.append("    ").append(name->name).append(name->comment.empty() ? "" : "  ; ") += name->comment;
  return text;
}

}  // namespace tarvelo
