#include "shell/files/piece_list.h"

#include <algorithm>

#include "resources/messages.h"
#include "resources/texts.h"
#include "shell/base/strings.h"
#include "shell/platform/accessible_name.h"
#include "shell/platform/list_keys.h"

namespace tarvelo {
namespace {

enum PieceColumn : unsigned { NumberColumn, OffsetColumn, SizeColumn };

}  // namespace

class PieceList::Model final : public wxDataViewVirtualListModel {
 public:
  explicit Model(const PieceList& list) : list_(list) {}

  void GetValueByRow(wxVariant& value, unsigned row, unsigned column) const override {
    if (row >= list_.pieces_.size()) {
      value = wxString();
      return;
    }
    const Region& piece = list_.pieces_[row];
    switch (column) {
      case NumberColumn: value = wxString() << row + 1; break;
      case OffsetColumn: value = Wx(list_.place_(piece.offset)); break;
      default: value = wxString() << piece.size;
    }
  }
  bool SetValueByRow(const wxVariant&, unsigned, unsigned) override { return false; }

 private:
  const PieceList& list_;
};

PieceList::PieceList(wxWindow* parent)
    : wxDataViewCtrl(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                     wxDV_SINGLE | wxDV_ROW_LINES | wxDV_VERT_RULES),
      model_(new Model(*this)) {
  SetFont(wxFont(wxFontInfo().Family(wxFONTFAMILY_TELETYPE)));
  AssociateModel(model_.get());
  platform::LeaveSearchToMenus(*this);
  for (const unsigned column : {NumberColumn, OffsetColumn, SizeColumn})
    AppendTextColumn(wxString(), column, wxDATAVIEW_CELL_INERT, wxCOL_WIDTH_DEFAULT, wxALIGN_LEFT,
                     wxDATAVIEW_COL_RESIZABLE);
}

void PieceList::SetPieces(std::vector<Region> pieces, std::function<std::string(Offset)> place) {
  pieces_ = std::move(pieces);
  place_ = std::move(place);
  OnInternalIdle();  // scrolls to a row, for which GTK waits: that row may be gone later
  model_->Reset(static_cast<unsigned>(pieces_.size()));
  Choose(0);
}

std::size_t PieceList::Chosen() const {
  const wxDataViewItem item = GetSelection();
  return item.IsOk() ? model_->GetRow(item) : 0;
}

void PieceList::Choose(std::size_t piece) {
  if (piece >= pieces_.size()) return;
  const wxDataViewItem item = model_->GetItem(static_cast<unsigned>(piece));
  Select(item);
  EnsureVisible(item);
}

void PieceList::Recaption(const Messages& messages) {
  const wxString captions[] = {"N", Wx(messages.Msg(Text::ColumnOffset)), Wx(messages.Msg(Text::ColumnSize))};
  constexpr int characters[] = {5, 12, 7};  // of the widest cells
  for (unsigned i = 0; i < GetColumnCount(); ++i) {
    GetColumn(i)->SetTitle(captions[i]);
    const int cells = GetTextExtent(wxString('0', static_cast<std::size_t>(characters[i]))).x;
    GetColumn(i)->SetWidth(std::max(cells, GetTextExtent(captions[i]).x * 9 / 8) + FromDIP(20));
  }
  platform::SetAccessibleName(*this, Wx(messages.Msg(Text::ColumnPieces)));
}

}  // namespace tarvelo
