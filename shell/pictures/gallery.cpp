#include "shell/pictures/gallery.h"

#include <wx/dcbuffer.h>
#include <wx/image.h>
#include <wx/settings.h>

#include <algorithm>

#include "shell/pictures/picture_view.h"
#include "shell/services/panel_commands.h"

namespace tarvelo {
namespace {

constexpr std::size_t mostThumbnails = 1500;  // many screenfuls, about 20 MiB

}  // namespace

Gallery::Gallery(wxWindow* parent)
    : wxScrolledCanvas(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxVSCROLL | wxWANTS_CHARS) {
  SetBackgroundStyle(wxBG_STYLE_PAINT);
  MeasureCells();
  Bind(wxEVT_PAINT, &Gallery::Paint, this);
  Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
    Arrange();
    if (selected_) ShowCell(*selected_);
    event.Skip();
  });
  Bind(wxEVT_DPI_CHANGED, [this](wxDPIChangedEvent& event) {
    MeasureCells();
    Arrange();
    event.Skip();
  });
  Bind(wxEVT_CHAR_HOOK, &Gallery::PressKey, this);
  Bind(wxEVT_LEFT_DOWN, [this](wxMouseEvent& event) {
    SetFocus();
    if (const auto index = At(event.GetPosition())) Choose(*index);
  });
  Bind(wxEVT_LEFT_DCLICK, [this](wxMouseEvent& event) {
    if (const auto index = At(event.GetPosition()); index && onActivate) onActivate(*index);
  });
  Bind(wxEVT_CONTEXT_MENU, &Gallery::OpenMenu, this);
}

void Gallery::MeasureCells() {
  cell_ = FromDIP(wxSize(64, 56));
  SetMinSize(cell_ * 2);
  SetScrollRate(0, cell_.y / 2);
  thumbnails_.clear();
}

void Gallery::SetPictures(std::size_t count, std::function<Bitmap(std::size_t)> draw) {
  draw_ = std::move(draw);
  count_ = count;
  thumbnails_.clear();
  selected_.reset();
  Scroll(0, 0);
  Arrange();
}

void Gallery::Select(std::size_t index) {
  if (index >= count_ || selected_ == index) return;
  selected_ = index;
  ShowCell(index);
  Refresh();
}

// Scrolls no farther than needed. While the window is lower than a cell, its top counts.
void Gallery::ShowCell(std::size_t index) {
  const wxRect cell = Cell(index);
  int unit = 0;
  GetScrollPixelsPerUnit(nullptr, &unit);
  const int top = CalcUnscrolledPosition(wxPoint(0, 0)).y;
  if (cell.y < top || GetClientSize().y <= cell.height)
    Scroll(0, cell.y / unit);
  else if (cell.GetBottom() > top + GetClientSize().y)
    Scroll(0, (cell.GetBottom() - GetClientSize().y + unit) / unit);
}

void Gallery::Choose(std::size_t index) {
  Select(index);
  if (onSelect) onSelect(index);
}

void Gallery::Arrange() {
  columns_ = static_cast<std::size_t>(std::max(1, GetClientSize().x / cell_.x));
  const std::size_t rows = (count_ + columns_ - 1) / columns_;
  SetVirtualSize(GetClientSize().x, static_cast<int>(rows) * cell_.y);
  Refresh();
}

// Shows small pictures at their own size and shrinks larger ones to fit their cell.
wxBitmap Gallery::Draw(std::size_t index) const {
  const Bitmap bitmap = draw_(index);
  if (bitmap.pixels.empty()) return {};  // an unfilled bitmap spoils what GTK draws after it
  const wxSize room = cell_ - FromDIP(wxSize(8, 8));
  wxImage image = ToImage(bitmap, 1, wxRect(0, 0, bitmap.width, bitmap.height));
  const double factor = std::min({1.0, double(room.x) / bitmap.width, double(room.y) / bitmap.height});
  if (factor < 1)
    image.Rescale(std::max(1, int(bitmap.width * factor)), std::max(1, int(bitmap.height * factor)),
                  wxIMAGE_QUALITY_BOX_AVERAGE);
  return {image};
}

const wxBitmap& Gallery::Thumbnail(std::size_t index) {
  const auto drawn = thumbnails_.find(index);
  if (drawn != thumbnails_.end()) return drawn->second;
  if (thumbnails_.size() >= mostThumbnails) thumbnails_.clear();
  return thumbnails_[index] = Draw(index);
}

wxRect Gallery::Cell(std::size_t index) const {
  const auto column = static_cast<int>(index % columns_);
  const auto row = static_cast<int>(index / columns_);
  return {wxPoint(column * cell_.x, row * cell_.y), cell_};
}

std::optional<std::size_t> Gallery::At(const wxPoint& point) const {
  const wxPoint place = CalcUnscrolledPosition(point);
  const auto column = static_cast<std::size_t>(place.x / cell_.x);
  const std::size_t index = static_cast<std::size_t>(place.y / cell_.y) * columns_ + column;
  if (column >= columns_ || index >= count_) return {};
  return index;
}

void Gallery::Paint(wxPaintEvent&) {
  wxAutoBufferedPaintDC dc(this);
  DoPrepareDC(dc);
  OnDraw(dc);
}

void Gallery::OnDraw(wxDC& dc) {
  dc.SetBackground(wxSystemSettings::GetColour(wxSYS_COLOUR_BTNFACE));
  dc.Clear();
  const int top = CalcUnscrolledPosition(wxPoint(0, 0)).y;
  const auto firstRow = static_cast<std::size_t>(top / cell_.y);
  const auto rows = static_cast<std::size_t>(GetClientSize().y / cell_.y + 2);
  const std::size_t end = std::min(count_, (firstRow + rows) * columns_);
  for (std::size_t index = firstRow * columns_; index < end; ++index) {
    const wxRect cell = Cell(index);
    if (index == selected_) {
      dc.SetPen(*wxTRANSPARENT_PEN);
      dc.SetBrush(wxSystemSettings::GetColour(wxSYS_COLOUR_HIGHLIGHT));
      dc.DrawRoundedRectangle(wxRect(cell).Deflate(FromDIP(1)), FromDIP(3));
    }
    const wxBitmap& thumbnail = Thumbnail(index);
    if (!thumbnail.IsOk()) continue;
    dc.DrawBitmap(thumbnail, wxRect(thumbnail.GetSize()).CentreIn(cell).GetTopLeft());
  }
}

// On the picture under the mouse, or below the selected one if a key opens it.
void Gallery::OpenMenu(const wxContextMenuEvent& event) {
  const bool isKey = event.GetPosition() == wxDefaultPosition;
  const auto index = isKey ? selected_ : At(ScreenToClient(event.GetPosition()));
  if (!index) return;
  if (isKey)
    ShowCell(*index);
  else
    Choose(*index);
  const wxPoint below = Cell(*index).GetBottomLeft() + wxPoint(cell_.x / 2, 0);
  if (onContextMenu) onContextMenu(MenuPlace(event, *this, CalcScrolledPosition(below)));
}

void Gallery::PressKey(wxKeyEvent& event) {
  if (count_ == 0 || event.AltDown()) return event.Skip();  // Alt with an arrow goes back and forth
  const auto current = static_cast<long>(selected_.value_or(0));
  const auto step = static_cast<long>(columns_);
  const long page = step * std::max(1, GetClientSize().y / cell_.y);
  const auto last = static_cast<long>(count_) - 1;
  long next = current;
  switch (event.GetKeyCode()) {
    case WXK_LEFT: next = current - 1; break;
    case WXK_RIGHT: next = current + 1; break;
    case WXK_UP: next = current - step; break;
    case WXK_DOWN: next = current + step; break;
    case WXK_PAGEUP: next = std::max(0L, current - page); break;
    case WXK_PAGEDOWN: next = std::min(last, current + page); break;
    case WXK_HOME: next = 0; break;
    case WXK_END: next = last; break;
    case WXK_RETURN:
    case WXK_NUMPAD_ENTER:
      if (onActivate) onActivate(static_cast<std::size_t>(current));
      return;
    default: return event.Skip();
  }
  if (next >= 0 && next <= last) Choose(static_cast<std::size_t>(next));
}

}  // namespace tarvelo
