// The control of the code panel: rows of instructions and data, with a cursor and a selection of rows.
#pragma once

#include "shell/code/code_paint.h"
#include "shell/view/row_canvas.h"

namespace tarvelo {

class CodeCanvas final : public RowCanvas {
 public:
  explicit CodeCanvas(wxWindow* parent);

  // Shows a view from its start, or nothing (null). The view and the edits must stay valid until the next
  // call.
  void SetView(const CodeView* view, const ImageEdits* edits);
  // Replaces the view by another of the same image and stays at the same place.
  void ReplaceView(const CodeView* view);
  [[nodiscard]] bool HasView() const { return Rows() > 0; }

  // The captions of the columns: offset, address, bytes, instruction, meaning.
  void SetCaptions(std::vector<wxString> captions);

  // Puts the cursor on the row that holds a byte and selects the rows of `size` bytes; 0: none.
  void Go(Offset offset, Offset size);
  // The row of the cursor, and the rows for a command: the selected ones, otherwise the one of the cursor.
  [[nodiscard]] Offset CursorRow() const { return scene_.cursor.At(); }
  [[nodiscard]] Region ChosenRows() const;
  // The bytes of these rows; the place of the cursor.
  [[nodiscard]] Region Chosen() const;
  [[nodiscard]] Offset At() const;

  // The point in the middle of a row.
  [[nodiscard]] wxPoint PlaceOf(Offset row) const;

  std::function<void()> onFollow;  // Enter, double click

 private:
  [[nodiscard]] Offset Rows() const override { return scene_.view ? scene_.view->Rows().Count() : 0; }
  [[nodiscard]] int Columns() const override { return scene_.columns.End(); }
  [[nodiscard]] Offset RowOf(Offset unit) const override { return unit; }
  [[nodiscard]] Offset UnitAt(const wxPoint& point) const override { return scene_.RowAt(point.y); }
  void Draw(wxDC& dc) override { DrawCode(dc, scene_, GetClientSize()); }
  void DoubleClicked(const wxPoint&) override;
  [[nodiscard]] wxPoint CursorPlace() const override;

  CodeScene scene_;
};

}  // namespace tarvelo
