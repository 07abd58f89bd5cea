#include "shell/map/image_strip.h"

#include <wx/dcbuffer.h>
#include <wx/image.h>
#include <wx/settings.h>

#include <algorithm>
#include <cstdint>
#include <utility>

namespace tarvelo {
namespace {

// In device-independent pixels.
constexpr int height = 30;
constexpr int pointerHeight = 5;  // above the bar
constexpr int margin = 5;         // beside it
constexpr int leastShare = 3;     // of a column's height

}  // namespace

ImageStrip::ImageStrip(wxWindow* parent) : wxWindow(parent, wxID_ANY) {
  SetBackgroundStyle(wxBG_STYLE_PAINT);
  SetMinSize(FromDIP(wxSize(60, height)));
  Bind(wxEVT_PAINT, [this](wxPaintEvent&) { Paint(); });
  Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
    bar_ = wxBitmap();
    Refresh();
    event.Skip();
  });
  Bind(wxEVT_SYS_COLOUR_CHANGED, [this](wxSysColourChangedEvent& event) {
    bar_ = wxBitmap();
    Refresh();
    event.Skip();
  });
  BindMouse();
}

void ImageStrip::Show(Offset imageSize, std::vector<StripPart> parts) {
  size_ = imageSize;
  markedSize_ = 0;
  bar_ = wxBitmap();
  described_ = -1;
  UnsetToolTip();
  pieces_.clear();
  pieces_.reserve(parts.size());
  palette_.assign(1, wxColour());
  for (const StripPart& part : parts) {
    const Offset begin = std::clamp<Offset>(part.offset, 0, imageSize);
    const Offset end = std::clamp<Offset>(part.offset + part.size, begin, imageSize);
    if (begin == end) continue;
    auto colour = std::ranges::find(palette_, part.colour);
    if (colour == palette_.end()) colour = palette_.insert(colour, part.colour);
    pieces_.push_back({begin, end, static_cast<std::size_t>(colour - palette_.begin())});
  }
  Refresh();
}

void ImageStrip::Mark(Offset offset, Offset size) {
  if (std::pair(offset, size) == std::pair(marked_, markedSize_)) return;
  marked_ = offset;
  markedSize_ = size;
  Refresh();
}

// --- geometry ---

wxRect ImageStrip::Bar() const {
  const wxSize size = GetClientSize();
  const int top = FromDIP(pointerHeight);
  return {FromDIP(margin), top, std::max(1, size.x - 2 * FromDIP(margin)), std::max(1, size.y - top)};
}

int ImageStrip::ColumnAt(int x) const {
  const wxRect bar = Bar();
  return std::clamp(x - bar.x, 0, bar.width - 1);
}

// If the image has fewer bytes than the bar has pixels, several columns start at the same byte.
Offset ImageStrip::Begin(int column) const { return column * size_ / Bar().width; }

Offset ImageStrip::End(int column) const {
  return std::max(Begin(column) + 1, (column + Offset{1}) * size_ / Bar().width);
}

wxRect ImageStrip::ColumnsOf(Offset offset, Offset size) const {
  wxRect columns = Bar();
  const Offset width = columns.width;
  if (size_ == 0) return columns;
  const Offset begin = std::clamp<Offset>(offset, 0, size_ - 1);
  const Offset end = std::clamp<Offset>(offset + size, begin + 1, size_);
  const Offset left = (begin * width + std::min(width, size_) - 1) / size_;
  const Offset right = std::max(left, (end * width - 1) / size_);
  columns.x += static_cast<int>(left);
  columns.width = static_cast<int>(right - left) + 1;
  return columns;
}

// The shares of the colours in a column, from the bottom up.
std::vector<ImageStrip::Share> ImageStrip::Shares(int column) const {
  const Offset begin = Begin(column);
  const Offset end = End(column);
  std::vector<Share> shares;
  const auto add = [&shares](std::size_t colour, Offset from, Offset to) {
    if (from >= to) return;
    auto share = std::ranges::find(shares, colour, &Share::colour);
    if (share == shares.end()) share = shares.insert(share, {colour, from});
    share->size += to - from;
  };
  Offset covered = begin;
  auto piece = std::ranges::upper_bound(pieces_, begin, {}, &Piece::end);
  for (; piece != pieces_.end() && piece->begin < end; ++piece) {
    add(0, covered, piece->begin);
    add(piece->colour, std::max(begin, piece->begin), std::min(end, piece->end));
    covered = piece->end;
  }
  add(0, covered, end);
  // The same order in all columns; gaps (colour 0, which wraps around) are on top.
  std::ranges::sort(shares, {}, [](const Share& share) { return share.colour - 1; });
  Stack(shares);
  return shares;
}

// Divides the height: each share gets a minimum, and the rest is divided in proportion to size.
void ImageStrip::Stack(std::vector<Share>& shares) const {
  const int whole = Bar().height;
  const int count = static_cast<int>(shares.size());
  const int least = std::min(FromDIP(leastShare), whole / count);
  const int rest = whole - least * count;
  Offset size = 0;
  for (const Share& share : shares) size += share.size;
  Offset sum = 0;
  int bottom = whole;
  for (int i = 0; i < count; ++i) {
    Share& share = shares[static_cast<std::size_t>(i)];
    sum += share.size;
    share.bottom = bottom;
    share.top = whole - least * (i + 1) - static_cast<int>(rest * sum / size);
    bottom = share.top;
  }
}

Offset ImageStrip::PlaceAt(const wxPoint& point) const {
  const int column = ColumnAt(point.x);
  const int y = std::clamp(point.y - Bar().y, 0, Bar().height - 1);
  for (const Share& share : Shares(column))
    if (share.top <= y && y < share.bottom) return share.first;
  return Begin(column);
}

wxPoint ImageStrip::PointOf(Offset offset) const {
  const wxRect bar = Bar();
  const int x = ColumnsOf(offset, 1).x;
  const auto piece = std::ranges::upper_bound(pieces_, offset, {}, &Piece::end);
  const std::size_t colour = piece != pieces_.end() && piece->begin <= offset ? piece->colour : 0;
  for (const Share& share : Shares(x - bar.x))
    if (share.colour == colour) return {x, bar.y + (share.top + share.bottom) / 2};
  return {x, bar.y};
}

// --- the mouse ---

void ImageStrip::BindMouse() {
  Bind(wxEVT_LEFT_DOWN, [this](wxMouseEvent& event) {
    if (size_ == 0) return;
    if (!HasCapture()) CaptureMouse();
    pointed_.reset();
    Point(event.GetPosition());
  });
  Bind(wxEVT_MOTION, [this](wxMouseEvent& event) {
    if (size_ == 0) return;
    Describe(event.GetX());
    if (HasCapture()) Point(event.GetPosition());
  });
  Bind(wxEVT_LEFT_UP, [this](wxMouseEvent&) {
    if (HasCapture()) ReleaseMouse();
  });
  Bind(wxEVT_MOUSE_CAPTURE_LOST, [](wxMouseCaptureLostEvent&) {});
}

void ImageStrip::Point(const wxPoint& point) {
  const Offset place = PlaceAt(point);
  if (std::exchange(pointed_, place) != place && onClick) onClick(place);
}

void ImageStrip::Describe(int x) {
  const int column = ColumnAt(x);
  if (!describe || std::exchange(described_, column) == column) return;
  SetToolTip(describe(Begin(column), End(column) - Begin(column)));
}

// --- painting ---

void ImageStrip::Paint() {
  wxAutoBufferedPaintDC dc(this);
  dc.SetBackground(GetParent()->GetBackgroundColour());
  dc.Clear();
  if (!bar_.IsOk()) bar_ = PaintBar();
  dc.DrawBitmap(bar_, Bar().GetTopLeft());
  dc.SetPen(wxSystemSettings::GetColour(wxSYS_COLOUR_BTNSHADOW));
  dc.SetBrush(*wxTRANSPARENT_BRUSH);
  dc.DrawRectangle(Bar().Inflate(1, 0));
  if (size_ > 0 && markedSize_ > 0) PaintMark(dc);
}

wxBitmap ImageStrip::PaintBar() const {
  const wxSize size = Bar().GetSize();
  wxImage image(size);
  const auto paint = [&image](int column, int top, int bottom, const wxColour& colour) {
    image.SetRGB(wxRect(column, top, 1, bottom - top), colour.Red(), colour.Green(), colour.Blue());
  };
  const wxColour ground = wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOW);
  for (int column = 0; column < size.x; ++column) {
    if (size_ == 0) {
      paint(column, 0, size.y, ground);
      continue;
    }
    for (const Share& share : Shares(column))
      if (share.top < share.bottom)
        paint(column, share.top, share.bottom, share.colour == 0 ? ground : palette_[share.colour]);
  }
  return wxBitmap(image);
}

// A black frame inside a white one, visible on any colour, with a pointer above.
void ImageStrip::PaintMark(wxDC& dc) const {
  const wxRect columns = ColumnsOf(marked_, markedSize_);
  wxRect frame = wxRect(columns).Inflate(2, 0);
  dc.SetBrush(*wxTRANSPARENT_BRUSH);
  for (const wxPen& pen : {*wxWHITE_PEN, *wxBLACK_PEN}) {
    dc.SetPen(pen);
    dc.DrawRectangle(frame);
    frame.Deflate(1, 1);
  }
  const int half = FromDIP(margin) - 1;
  const int middle = columns.x + columns.width / 2;
  const wxPoint pointer[] = {{middle - half, 0}, {middle + half, 0}, {middle, Bar().y - 1}};
  const wxColour ink = wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOWTEXT);
  dc.SetPen(ink);
  dc.SetBrush(ink);
  dc.DrawPolygon(static_cast<int>(std::size(pointer)), pointer);
}

}  // namespace tarvelo
