#include "shell/pictures/picture_view.h"

#include <wx/dcbuffer.h>
#include <wx/image.h>

#include <algorithm>

namespace tarvelo {
namespace {

constexpr int square = 4;  // of the checkerboard, in screen pixels
constexpr Colour lightSquare = 0xFFFFFF;
constexpr Colour darkSquare = 0xD0D0D8;
const wxColour surroundings(0x96, 0x9A, 0xA0);  // neither white nor black, unlike many pictures

}  // namespace

wxImage ToImage(const Bitmap& bitmap, int zoom, const wxRect& part) {
  wxImage image(part.width, part.height, false);
  unsigned char* out = image.GetData();
  for (int y = part.y; y < part.y + part.height; ++y)
    for (int x = part.x; x < part.x + part.width; ++x) {
      Colour colour = bitmap.At(x / zoom, y / zoom);
      if (colour == backgroundColour) colour = (x / square + y / square) % 2 == 0 ? lightSquare : darkSquare;
      *out++ = static_cast<unsigned char>(colour >> 16);
      *out++ = static_cast<unsigned char>(colour >> 8);
      *out++ = static_cast<unsigned char>(colour);
    }
  return image;
}

PictureView::PictureView(wxWindow* parent)
    : wxScrolledCanvas(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxWANTS_CHARS) {
  SetBackgroundStyle(wxBG_STYLE_PAINT);
  SetMinSize(FromDIP(wxSize(140, 110)));
  Bind(wxEVT_PAINT, &PictureView::Paint, this);
  Bind(wxEVT_MOUSEWHEEL, &PictureView::TurnWheel, this);
  Bind(wxEVT_CHAR_HOOK, &PictureView::PressKey, this);
  Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
    if (fit_) Arrange();
    event.Skip();
  });
}

void PictureView::Show(std::optional<Bitmap> bitmap) {
  bitmap_ = std::move(bitmap);
  Arrange();
}

void PictureView::SetZoom(int zoom) {
  fit_ = false;
  zoom_ = std::clamp(zoom, 1, largestZoom);
  Arrange();
}

void PictureView::FitWindow() {
  fit_ = true;
  Arrange();
}

void PictureView::Arrange() {
  const int width = bitmap_ ? std::max(1, bitmap_->width) : 1;
  const int height = bitmap_ ? std::max(1, bitmap_->height) : 1;
  if (fit_) zoom_ = std::clamp(std::min(GetSize().x / width, GetSize().y / height), 1, largestZoom);
  const int margin = fit_ ? 0 : FromDIP(4);
  SetVirtualSize(width * zoom_ + margin, height * zoom_ + margin);
  SetScrollRate(zoom_, zoom_);
  Refresh();
}

// Draws only the visible part: a picture of 255 x 255 at 16x would be 16 million pixels.
void PictureView::Paint(wxPaintEvent&) {
  wxAutoBufferedPaintDC dc(this);
  dc.SetBackground(surroundings);
  dc.Clear();
  if (!bitmap_ || bitmap_->pixels.empty()) return;
  const wxSize whole(bitmap_->width * zoom_, bitmap_->height * zoom_);
  const wxSize client = GetClientSize();
  // Centred if there is room, otherwise scrolled.
  const wxPoint scrolled = CalcUnscrolledPosition(wxPoint(0, 0));
  const wxPoint origin(whole.x < client.x ? (client.x - whole.x) / 2 : -scrolled.x,
                       whole.y < client.y ? (client.y - whole.y) / 2 : -scrolled.y);
  wxRect seen = wxRect(-origin.x, -origin.y, client.x, client.y).Intersect(wxRect(whole));
  if (seen.IsEmpty()) return;
  dc.DrawBitmap(wxBitmap(ToImage(*bitmap_, zoom_, seen)), origin + seen.GetTopLeft());
}

// A horizontal wheel scrolls.
void PictureView::TurnWheel(wxMouseEvent& event) {
  if (event.GetWheelAxis() == wxMOUSE_WHEEL_HORIZONTAL)
    event.Skip();
  else
    ZoomBy(event.GetWheelRotation() > 0 ? 1 : -1);
}

void PictureView::PressKey(wxKeyEvent& event) {
  switch (event.GetUnicodeKey()) {
    case '+':
    case '=': ZoomBy(1); break;
    case '-': ZoomBy(-1); break;
    case '0':
      if (event.HasModifiers()) return event.Skip();  // of the menu bar
      return FitWindow();
    default: event.Skip();
  }
}

}  // namespace tarvelo
