// All pictures side by side, to show a dump's artwork at a glance. Thumbnails are drawn when they become
// visible.
#pragma once

#include <wx/bitmap.h>
#include <wx/scrolwin.h>

#include <functional>
#include <map>
#include <optional>

#include "pictures/bitmap.h"

namespace tarvelo {

class Gallery final : public wxScrolledCanvas {
 public:
  explicit Gallery(wxWindow* parent);

  // Shows `count` pictures; `draw` makes each of them when it is needed.
  void SetPictures(std::size_t count, std::function<Bitmap(std::size_t)> draw);

  // Frames a picture and scrolls to it without calling onSelect.
  void Select(std::size_t index);
  [[nodiscard]] std::optional<std::size_t> Selected() const { return selected_; }

  // Draws the visible pictures; the DC is scrolled already.
  void OnDraw(wxDC& dc) override;

  std::function<void(std::size_t index)> onSelect;          // by mouse or keyboard
  std::function<void(std::size_t index)> onActivate;        // double click, Enter
  std::function<void(const wxPoint& place)> onContextMenu;  // on the screen

 private:
  void MeasureCells();
  void Arrange();
  void ShowCell(std::size_t index);
  void Choose(std::size_t index);
  [[nodiscard]] wxBitmap Draw(std::size_t index) const;
  [[nodiscard]] const wxBitmap& Thumbnail(std::size_t index);
  [[nodiscard]] wxRect Cell(std::size_t index) const;
  [[nodiscard]] std::optional<std::size_t> At(const wxPoint& point) const;
  void Paint(wxPaintEvent& event);
  void PressKey(wxKeyEvent& event);
  void OpenMenu(const wxContextMenuEvent& event);

  std::function<Bitmap(std::size_t)> draw_;
  std::size_t count_ = 0;
  std::map<std::size_t, wxBitmap> thumbnails_;  // the recently drawn ones
  std::optional<std::size_t> selected_;
  wxSize cell_;
  std::size_t columns_ = 1;
};

}  // namespace tarvelo
