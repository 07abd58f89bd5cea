#include "shell/code/code_canvas.h"

#include <algorithm>
#include <utility>

namespace tarvelo {

CodeCanvas::CodeCanvas(wxWindow* parent) : RowCanvas(parent, scene_) {
  const double points = GetFont().GetFractionalPointSize();
  SetFont(wxFont(wxFontInfo(points).Family(wxFONTFAMILY_TELETYPE)));
  Bind(wxEVT_CHAR_HOOK, [this](wxKeyEvent& event) {
    const int key = event.GetKeyCode();
    const bool isEnter = key == WXK_RETURN || key == WXK_NUMPAD_ENTER;
    if (isEnter && event.GetModifiers() == wxMOD_NONE && onFollow)
      onFollow();
    else
      event.Skip();
  });
}

void CodeCanvas::SetView(const CodeView* view, const ImageEdits* edits) {
  scene_.view = view;
  scene_.edits = edits;
  scene_.columns = view ? CodeColumns(view->Image()) : CodeColumns();
  Restart(Rows(), 1);
}

void CodeCanvas::ReplaceView(const CodeView* view) {
  const CodeRows& old = scene_.view->Rows();
  const Region chosen = scene_.cursor.Selection().size > 0 ? Chosen() : Region{At(), 0};
  const Offset above = CursorRow() - scene_.topRow;
  const bool wasSeen = above >= 0 && above < RowsSeen();
  const Offset top = old.At(scene_.topRow).offset;
  const int left = scene_.leftColumn;
  scene_.view = view;
  Restart(Rows(), 1);
  scene_.leftColumn = left;
  Go(chosen.offset, chosen.size);
  ScrollToRow(wasSeen ? CursorRow() - above : view->Rows().RowOf(top));
  UpdateScrollbars();
}

void CodeCanvas::SetCaptions(std::vector<wxString> captions) {
  scene_.captions = std::move(captions);
  Refresh();
}

void CodeCanvas::Go(Offset offset, Offset size) {
  const CodeRows& rows = scene_.view->Rows();
  const Offset first = rows.RowOf(offset);
  const Offset last =
      size > 0 ? rows.RowOf(std::min(offset + size - 1, Offset{scene_.view->Image().ffEnd()})) : first;
  const bool isOne = last == first;
  GoTo(first, size > 0 && !isOne ? last - first + 1 : 0);
}

Region CodeCanvas::ChosenRows() const {
  const Region selected = scene_.cursor.Selection();
  return selected.size > 0 ? selected : Region{CursorRow(), 1};
}

Region CodeCanvas::Chosen() const {
  const CodeRows& rows = scene_.view->Rows();
  const Region chosen = ChosenRows();
  const CodeRow first = rows.At(chosen.offset);
  CodeRow last = rows.At(chosen.End() - 1);
  if (last.kind == CodeRow::Kind::Heading) last = rows.At(chosen.End());
  return {first.offset, last.offset + last.size - first.offset};
}

Offset CodeCanvas::At() const { return scene_.view->Rows().At(CursorRow()).offset; }

void CodeCanvas::DoubleClicked(const wxPoint&) {
  if (onFollow) onFollow();
}

wxPoint CodeCanvas::PlaceOf(Offset row) const {
  return {scene_.X(scene_.columns.Code()) + 1, scene_.Y(row) + scene_.rowHeight / 2};
}

wxPoint CodeCanvas::CursorPlace() const { return PlaceOf(CursorRow()) + wxPoint(0, scene_.rowHeight / 2); }

}  // namespace tarvelo
