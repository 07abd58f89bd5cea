// One picture, enlarged, with sharp pixels. Transparent and undrawn pixels show a checkerboard.
#pragma once

#include <wx/scrolwin.h>

#include <optional>

#include "pictures/bitmap.h"

namespace tarvelo {

// A part of a picture as a wx image in which each pixel is `zoom` pixels wide. The checkerboard is aligned
// with the picture, not with the part.
[[nodiscard]] wxImage ToImage(const Bitmap& bitmap, int zoom, const wxRect& part);

class PictureView final : public wxScrolledCanvas {
 public:
  static constexpr int largestZoom = 16;

  explicit PictureView(wxWindow* parent);

  // Shows a picture, or nothing.
  void Show(std::optional<Bitmap> bitmap);
  using wxScrolledCanvas::Show;
  [[nodiscard]] const std::optional<Bitmap>& GetBitmap() const { return bitmap_; }

  // 1 .. 16. Fit chooses the largest zoom at which the whole picture is visible, and keeps adjusting it.
  void SetZoom(int zoom);
  void FitWindow();
  void ZoomBy(int steps) { SetZoom(zoom_ + steps); }
  [[nodiscard]] int Zoom() const { return zoom_; }

 private:
  void Arrange();
  void Paint(wxPaintEvent& event);
  void TurnWheel(wxMouseEvent& event);
  void PressKey(wxKeyEvent& event);

  std::optional<Bitmap> bitmap_;
  int zoom_ = 1;
  bool fit_ = true;
};

}  // namespace tarvelo
