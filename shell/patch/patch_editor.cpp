#include "shell/patch/patch_editor.h"

#include <wx/settings.h>

#include <algorithm>

#include "patch/patch_document.h"
#include "shell/base/blend.h"
#include "shell/base/strings.h"
#include "text/unicode.h"

namespace tarvelo {
namespace {

enum Style { PlainStyle = 0, CommentStyle, InvalidStyle, MisfitStyle, OverlapStyle };

constexpr int numberMargin = 0;  // the margin of the line numbers
constexpr int symbolMargin = 1;
constexpr int mostStyled = 2000;  // lines at once; more are left plain until they are seen

Style StyleOfVerdict(LineVerdict verdict) {
  switch (verdict) {
    case LineVerdict::Nothing:
    case LineVerdict::Fits:
    case LineVerdict::Applied: return PlainStyle;
    case LineVerdict::Overlaps: return OverlapStyle;
    case LineVerdict::Malformed: return InvalidStyle;
    default: return MisfitStyle;
  }
}

}  // namespace

PatchEditor::PatchEditor(wxWindow* parent) : TextPane(parent) {
  SetEOLMode(wxSTC_EOL_CRLF);
  SetModEventMask(wxSTC_MOD_INSERTTEXT | wxSTC_MOD_DELETETEXT);  // a mark is no change of the text
  ChooseColours();
  SetMarginType(numberMargin, wxSTC_MARGIN_NUMBER);
  FitNumbers();
  SetMarginType(symbolMargin, wxSTC_MARGIN_BACK);
  SetMarginMask(symbolMargin, (1 << lineVerdicts) - 1);
  SetMarginWidth(symbolMargin, FromDIP(16));
  CmdKeyClear('T', wxSTC_KEYMOD_CTRL | wxSTC_KEYMOD_SHIFT);  // copies a line, which no menu says
  Bind(wxEVT_STC_STYLENEEDED, &PatchEditor::StyleLines, this);
  Bind(wxEVT_STC_UPDATEUI, [this](wxStyledTextEvent& event) {
    UpdateSeen();
    event.Skip();
  });
}

void PatchEditor::ChooseColours() {
  TextPane::ChooseColours();
  const wxColour window = wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOW);
  const wxColour text = wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOWTEXT);
  StyleSetForeground(CommentStyle, Blend(wxColour(0, 160, 0), Blend(window, text, 0.35), 0.35));
  StyleSetForeground(InvalidStyle, Blend(wxColour(230, 40, 40), text, 0.75));
  StyleSetForeground(MisfitStyle, Blend(wxColour(230, 40, 40), text, 0.75));
  StyleSetForeground(OverlapStyle, Blend(wxColour(210, 130, 0), text, 0.8));
  StyleSetForeground(wxSTC_STYLE_LINENUMBER, Blend(window, text, 0.55));
  DefineMarks(text, window);
}

// Signs differ in form, not in colour alone.
void PatchEditor::DefineMarks(const wxColour& text, const wxColour& window) {
  const wxColour good = Blend(wxColour(0, 160, 0), text, 0.75), bad = Blend(wxColour(230, 40, 40), text, 0.9);
  const wxColour doubtful = Blend(wxColour(210, 130, 0), text, 0.9);
  const auto define = [&](LineVerdict verdict, int symbol, const wxColour& colour) {
    const bool isSign = symbol > wxSTC_MARK_CHARACTER;
    MarkerDefine(static_cast<int>(verdict), symbol, colour, isSign ? window : colour);
  };
  define(LineVerdict::Fits, wxSTC_MARK_SMALLRECT, good);
  define(LineVerdict::Applied, wxSTC_MARK_CIRCLE, good);
  define(LineVerdict::Overlaps, wxSTC_MARK_CHARACTER + '=', doubtful);
  define(LineVerdict::Differs, wxSTC_MARK_CHARACTER + '!', bad);
  define(LineVerdict::Contradicts, wxSTC_MARK_CHARACTER + 'x', bad);
  define(LineVerdict::Outside, wxSTC_MARK_CHARACTER + '>', bad);
  define(LineVerdict::Malformed, wxSTC_MARK_CHARACTER + '?', bad);
}

void PatchEditor::FitNumbers() {
  const wxString widest = "_" + std::to_string(std::max(99999, GetLineCount()));
  SetMarginWidth(numberMargin, TextWidth(wxSTC_STYLE_LINENUMBER, widest));
}

// Called for the lines about to be drawn and those above them that were never drawn.
void PatchEditor::StyleLines(wxStyledTextEvent& event) {
  const int last = LineFromPosition(event.GetPosition());
  int line = LineFromPosition(GetEndStyled());
  if (last - line > mostStyled) {
    StartStyling(PositionFromLine(line));
    line = last - mostStyled;
    SetStyling(PositionFromLine(line) - GetEndStyled(), PlainStyle);
  }
  for (; line <= last; ++line) StyleLine(line);
}

void PatchEditor::StyleLine(int line) {
  const int start = PositionFromLine(line);
  StartStyling(start);
  SetStyling(PositionFromLine(line + 1) - start, StyleOf(line));
}

int PatchEditor::StyleOf(int line) const {
  const PatchLine::Kind kind = ReadPatchLine(LineText(line)).kind;
  if (kind == PatchLine::Kind::Comment) return CommentStyle;
  if (kind == PatchLine::Kind::Invalid) return InvalidStyle;
  const auto verdict = verdictOn ? verdictOn(static_cast<std::size_t>(line) + 1) : std::nullopt;
  return StyleOfVerdict(verdict.value_or(LineVerdict::Nothing));
}

// --- verdicts ---

void PatchEditor::ShowVerdicts() {
  seenFirst_ = seenLast_ = -1;
  UpdateSeen();
}

// A long document would take too long to mark as a whole.
void PatchEditor::UpdateSeen() {
  const int first = GetFirstVisibleLine();
  const int last = std::min(first + LinesOnScreen() + 1, GetLineCount() - 1);
  if (first == seenFirst_ && last == seenLast_) return;
  seenFirst_ = first;
  seenLast_ = last;
  FitNumbers();
  const int styled = GetEndStyled();
  for (int line = first; line <= last; ++line) {
    MarkLine(line);
    if (PositionFromLine(line) < GetLineEndPosition(line) &&
        GetStyleAt(PositionFromLine(line)) != StyleOf(line))
      StyleLine(line);
  }
  if (GetEndStyled() < styled) StartStyling(styled);  // what is styled below stays so
}

void PatchEditor::MarkLine(int line) {
  if (!verdictOn) return;
  const auto verdict = verdictOn(static_cast<std::size_t>(line) + 1);
  if (!verdict) return;  // the old mark stays meanwhile
  const int wanted = *verdict == LineVerdict::Nothing ? 0 : 1 << static_cast<int>(*verdict);
  if (MarkerGet(line) == wanted) return;
  MarkerDelete(line, -1);
  if (wanted != 0) MarkerAdd(line, static_cast<int>(*verdict));
}

void PatchEditor::GoToLine(std::size_t line) { GotoLine(static_cast<int>(line) - 1); }

// --- the text ---

std::string PatchEditor::Document() const {
  const wxCharBuffer text = const_cast<PatchEditor*>(this)->GetTextRaw();
  return {text.data(), text.length()};
}

std::vector<std::string> PatchEditor::Lines() const {
  std::vector<std::string> lines;
  for (int line = 0; line < GetLineCount(); ++line) lines.push_back(LineText(line));
  return lines;
}

std::string PatchEditor::LineText(int line) const {
  auto& self = *const_cast<PatchEditor*>(this);
  const wxCharBuffer text = self.GetTextRangeRaw(PositionFromLine(line), GetLineEndPosition(line));
  return {text.data(), text.length()};
}

std::string PatchEditor::LineAtCaret() const { return LineText(LineFromPosition(GetCurrentPos())); }

void PatchEditor::ReplaceLines(const std::map<std::size_t, std::string>& texts) {
  if (texts.empty()) return;
  BeginUndoAction();
  for (const auto& [index, text] : texts) {
    const int line = static_cast<int>(index);
    Replace(PositionFromLine(line), GetLineEndPosition(line), Wx(text));
  }
  EndUndoAction();
}

void PatchEditor::ReplaceAll(std::string_view text) {
  const std::size_t line = CaretLine();
  BeginUndoAction();
  ClearAll();
  AppendTextRaw(text.data(), static_cast<int>(text.size()));
  EndUndoAction();
  GoToLine(line);
}

void PatchEditor::Open(std::string_view text) {
  ClearAll();
  AppendTextRaw(text.data(), static_cast<int>(text.size()));
  EmptyUndoBuffer();
  GotoPos(0);
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
