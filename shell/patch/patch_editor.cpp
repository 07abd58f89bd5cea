#include "shell/patch/patch_editor.h"

#include <wx/settings.h>

#include <algorithm>

#include "patch/patch_document.h"
#include "shell/base/strings.h"
#include "text/unicode.h"

namespace tarvelo {
namespace {

enum Style { PlainStyle = 0, CommentStyle, InvalidStyle };

constexpr int numberMargin = 0;  // the margin of the line numbers
constexpr int symbolMargin = 1;

Style StyleOf(std::string_view line) {
  switch (ReadPatchLine(line).kind) {
    case PatchLine::Kind::Comment: return CommentStyle;
    case PatchLine::Kind::Invalid: return InvalidStyle;
    default: return PlainStyle;
  }
}

// A mix of two colours with `share` per cent of the second.
wxColour Mix(const wxColour& a, const wxColour& b, int share) {
  const auto part = [share](int x, int y) { return static_cast<unsigned char>(x + (y - x) * share / 100); };
  return {part(a.Red(), b.Red()), part(a.Green(), b.Green()), part(a.Blue(), b.Blue())};
}

}  // namespace

PatchEditor::PatchEditor(wxWindow* parent) : wxStyledTextCtrl(parent) {
  SetLexer(wxSTC_LEX_CONTAINER);
  SetEOLMode(wxSTC_EOL_CRLF);
  UsePopUp(wxSTC_POPUP_NEVER);
  SetScrollWidthTracking(true);
  ChooseColours();
  SetMarginType(numberMargin, wxSTC_MARGIN_NUMBER);
  SetMarginWidth(numberMargin, TextWidth(wxSTC_STYLE_LINENUMBER, "_99999"));
  SetMarginWidth(symbolMargin, 0);
  SetMarginLeft(FromDIP(6));
  Bind(wxEVT_STC_STYLENEEDED, &PatchEditor::StyleLines, this);
  Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
    FitScrollWidth();
    event.Skip();
  });
  Bind(wxEVT_SYS_COLOUR_CHANGED, [this](wxSysColourChangedEvent& event) {
    ChooseColours();
    event.Skip();
  });
}

void PatchEditor::ChooseColours() {
  const auto system = [](wxSystemColour colour) { return wxSystemSettings::GetColour(colour); };
  const wxColour window = system(wxSYS_COLOUR_WINDOW);
  const wxColour text = system(wxSYS_COLOUR_WINDOWTEXT);
  StyleSetFont(wxSTC_STYLE_DEFAULT, wxFont(wxFontInfo().Family(wxFONTFAMILY_TELETYPE)));
  StyleSetBackground(wxSTC_STYLE_DEFAULT, window);
  StyleSetForeground(wxSTC_STYLE_DEFAULT, text);
  StyleClearAll();
  StyleSetForeground(CommentStyle, Mix(Mix(text, window, 35), wxColour(0, 160, 0), 35));
  StyleSetForeground(InvalidStyle, Mix(text, wxColour(230, 40, 40), 75));
  StyleSetForeground(wxSTC_STYLE_LINENUMBER, Mix(text, window, 55));
  SetCaretForeground(text);
  SetSelBackground(true, system(wxSYS_COLOUR_HIGHLIGHT));
  SetSelForeground(true, system(wxSYS_COLOUR_HIGHLIGHTTEXT));
}

// The scrollable width is the visible width until a longer line makes it wider. The control's own guess would
// always show a scrollbar.
void PatchEditor::FitScrollWidth() {
  const int margins = GetMarginWidth(numberMargin) + GetMarginLeft() + GetMarginRight();
  const int seen = std::max(1, GetClientSize().x - margins);
  if (GetXOffset() == 0 || seen > GetScrollWidth()) SetScrollWidth(seen);
}

// Called for the lines about to be drawn, so that even a long text costs nothing while the user types.
void PatchEditor::StyleLines(wxStyledTextEvent& event) {
  const int last = LineFromPosition(event.GetPosition());
  int line = LineFromPosition(GetEndStyled());
  StartStyling(PositionFromLine(line));
  for (; line <= last; ++line) {
    const int start = PositionFromLine(line);
    const wxCharBuffer text = GetTextRangeRaw(start, GetLineEndPosition(line));
    SetStyling(PositionFromLine(line + 1) - start, StyleOf({text.data(), text.length()}));
  }
}

std::string PatchEditor::Document() const {
  const wxCharBuffer text = const_cast<PatchEditor*>(this)->GetTextRaw();
  return {text.data(), text.length()};
}

std::vector<std::string> PatchEditor::Lines() const {
  auto& self = *const_cast<PatchEditor*>(this);
  std::vector<std::string> lines;
  for (int line = 0; line < GetLineCount(); ++line) {
    const wxCharBuffer text = self.GetTextRangeRaw(PositionFromLine(line), GetLineEndPosition(line));
    lines.emplace_back(text.data(), text.length());
  }
  return lines;
}

void PatchEditor::ReplaceLines(const std::map<std::size_t, std::string>& texts) {
  if (texts.empty()) return;
  BeginUndoAction();
  for (const auto& [index, text] : texts) {
    const int line = static_cast<int>(index);
    Replace(PositionFromLine(line), GetLineEndPosition(line), Wx(text));
  }
  EndUndoAction();
}

void PatchEditor::Append(std::string_view text) {
  BeginUndoAction();  // otherwise it would share a step with the text typed just before
  AppendText(Wx(text));
  EndUndoAction();
  GotoPos(GetLength());
}

void PatchEditor::Forget() {
  ClearAll();
  EmptyUndoBuffer();
}

wxPoint PatchEditor::BelowCaret() {
  return PointFromPosition(GetCurrentPos()) + wxPoint(0, TextHeight(GetCurrentLine()));
}

// The control's own search ignores case only for English letters.
bool PatchEditor::SelectNext(std::string_view wanted, bool backwards) {
  const std::string text = ToUpper(Document());  // every character keeps its length in upper case
  const std::string upper = ToUpper(wanted);
  const auto start = static_cast<std::size_t>(GetSelectionStart());
  std::size_t found = text.npos;
  if (!backwards)
    found = text.find(upper, static_cast<std::size_t>(GetSelectionEnd()));
  else if (start > 0)
    found = text.rfind(upper, start - 1);
  if (found == text.npos) found = backwards ? text.rfind(upper) : text.find(upper);
  if (found == text.npos) return false;
  SetSelection(static_cast<int>(found), static_cast<int>(found + upper.size()));
  EnsureCaretVisible();
  return true;
}

}  // namespace tarvelo
