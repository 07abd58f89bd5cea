#include "shell/code/function_side.h"

#include <wx/sizer.h>

#include "core/notation.h"
#include "core/places.h"
#include "resources/texts.h"
#include "shell/list/list_view.h"

namespace tarvelo {

FunctionSide::FunctionSide(wxWindow* parent, const Messages& texts)
    : wxPanel(parent), texts_(texts), list_(new ListView(this)) {
  auto* all = new wxBoxSizer(wxVERTICAL);
  all->Add(list_, 1, wxEXPAND);
  SetSizer(all);
  list_->onSelect = [this](std::size_t row) {
    if (!isSelecting_) Call(onChoose, row);
  };
  list_->onActivate = [this](std::size_t row) { Call(onActivate, row); };
}

void FunctionSide::SetView(const CodeView* view) {
  const bool isNew = view_ == nullptr;
  view_ = view;
  Change([&] { isNew ? list_->SetRows(Rows()) : list_->ReplaceRows(Rows()); });
}

void FunctionSide::Follow(Offset offset) {
  const Function* function = view_ ? view_->Functions().At(offset) : nullptr;
  if (!function) return;
  const auto row = static_cast<std::size_t>(function - view_->Functions().All().data());
  if (list_->Selected() == row || !list_->IsListed(row)) return;
  Change([&] { list_->Select(row); });
}

void FunctionSide::Recaption(const Messages& messages) {
  list_->Recaption(messages, Text::Functions);
  Change([&] { list_->Reword(Rows()); });
}

TableRows FunctionSide::Rows() const {
  return {Captions(texts_, {Text::ColumnAddress, Text::ColumnCalls, Text::ColumnName}),
          view_ ? view_->Functions().All().size() : 0, [this](std::size_t row) -> Table::Row {
            const Function& function = view_->Functions().All()[row];
            const Fullflash& image = view_->Image();
            return {{SegmentText(image, function.code.offset), WholeDecimal(function.calls, 4),
                     std::string(view_->PlaceNames().NameAt(image.PhoneAddress(function.code.offset)))}};
          }};
}

void FunctionSide::Call(const std::function<void(const Function&)>& handler, std::size_t row) const {
  if (view_ && handler && row < view_->Functions().All().size()) handler(view_->Functions().All()[row]);
}

// Changes the list without calling the handlers.
void FunctionSide::Change(const std::function<void()>& change) {
  isSelecting_ = true;
  change();
  isSelecting_ = false;
}

}  // namespace tarvelo
