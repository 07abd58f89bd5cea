#include "shell/hex/other_pane.h"

#include <wx/sizer.h>
#include <wx/stattext.h>

#include <utility>

#include "resources/texts.h"
#include "shell/base/strings.h"
#include "shell/hex/hex_canvas.h"
#include "shell/platform/accessible_name.h"

namespace tarvelo {

OtherPane::OtherPane(wxWindow* parent, HexCanvas& rows)
    : wxPanel(parent),
      rows_(rows),
      caption_(new wxStaticText(this, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize,
                                wxST_ELLIPSIZE_MIDDLE | wxST_NO_AUTORESIZE)),
      canvas_(new HexCanvas(this)) {
  auto* column = new wxBoxSizer(wxVERTICAL);
  column->Add(caption_, 0, wxEXPAND | wxALL, FromDIP(4));
  column->Add(canvas_, 1, wxEXPAND);
  SetSizer(column);
  rows_.onScroll = [this] {
    if (HasDump()) canvas_->ScrollToRow(rows_.TopRow());
  };
  canvas_->onScroll = [this] { rows_.ScrollToRow(canvas_->TopRow()); };
  canvas_->onSelect = [this] {
    if (std::exchange(isFollowing_, true)) return;
    rows_.SetCursor(canvas_->Cursor());
    if (rows_.onSelect) rows_.onSelect();
    isFollowing_ = false;
  };
}

void OtherPane::ShowDump(const OtherDump& other, const Fullflash& image) {
  if (other.image == other_.image && other.shift == other_.shift) return;
  Clear();
  other_ = other;
  if (!HasDump()) return;
  canvas_->SetOther(other.image, other.shift, image, std::ssize(image.ff()));
  rows_.CompareWith(other.image, other.shift);
  caption_->SetLabelText(WxPath(other.path));
  caption_->SetToolTip(WxPath(other.path));
  Follow();
  canvas_->ScrollToRow(rows_.TopRow());
}

void OtherPane::Clear() {
  other_ = {};
  canvas_->SetImage(nullptr, nullptr);
  rows_.CompareWith(nullptr, 0);
}

void OtherPane::SetLook(const HexLook& look) {
  canvas_->SetLook(look);
  canvas_->ScrollToRow(rows_.TopRow());
}

void OtherPane::Recaption(const Messages& messages) {
  platform::SetAccessibleName(*canvas_, Wx(messages.Msg(Text::ShowOther)));
}

void OtherPane::ImageChanged() { canvas_->ImageChanged(); }

void OtherPane::Follow() {
  if (!isFollowing_ && HasDump()) canvas_->SetCursor(rows_.Cursor());
}

}  // namespace tarvelo
