// One picture, enlarged, in crisp pixels; what is transparent or not drawn is a checkerboard.
#pragma once

#include <wx/scrolwin.h>

#include <optional>

#include "pictures/bitmap.h"

namespace tarvelo {

// A part of a picture as wx draws it, each pixel `zoom` pixels wide. The checkerboard's squares lie
// in place with the picture's own pixels.
[[nodiscard]] wxImage ToImage(const Bitmap& bitmap, int zoom, const wxRect& part);

class PictureView final : public wxScrolledCanvas {
 public:
  static constexpr int largestZoom = 16;

  explicit PictureView(wxWindow* parent);

  // Shows a picture, or nothing.
  void Show(std::optional<Bitmap> bitmap);
  using wxScrolledCanvas::Show;
  [[nodiscard]] const std::optional<Bitmap>& GetBitmap() const { return bitmap_; }

  // 1 .. 16. Fit chooses the largest at which the whole picture is seen, and goes on doing so.
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
