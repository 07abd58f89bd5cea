#include "shell/frame/wx_dialogs.h"

#include <wx/arrstr.h>
#include <wx/button.h>
#include <wx/filedlg.h>
#include <wx/msgdlg.h>
#include <wx/sizer.h>
#include <wx/textctrl.h>
#include <wx/textdlg.h>

#include <wx/generic/msgdlgg.h>  // after wx/msgdlg.h

#include "resources/messages.h"
#include "resources/texts.h"
#include "shell/base/product.h"
#include "shell/base/strings.h"
#include "shell/list/list_view.h"
#include "shell/list/review_dialog.h"

namespace tarvelo {
namespace {

#ifdef __WXGTK__
using MessageDialog = wxGenericMessageDialog;  // the native one shows no icons
#else
using MessageDialog = wxMessageDialog;
#endif

std::optional<std::filesystem::path> ChooseFile(wxWindow* parent, const wxString& title,
                                                const wxString& filter, const std::filesystem::path& current,
                                                long style) {
  wxFileDialog dialog(parent, title, WxPath(current.parent_path()), WxPath(current.filename()),
                      FilterForSystem(filter), style);
  if (dialog.ShowModal() != wxID_OK) return {};
  return PathFrom(dialog.GetPath());
}

constexpr int longestLine = 80;  // columns

// On the screen. Chinese characters take two; the second unit of a character takes none.
int ColumnsOf(wxUniChar c) {
  const bool isSecondUnit = c >= 0xDC00 && c <= 0xDFFF;
  if (isSecondUnit) return 0;
  return c >= 0x1100 ? 2 : 1;
}

// The length of the part of a line that goes on the first line of a message box.
std::size_t FittingPart(const wxString& line) {
  int columns = 0;
  std::size_t length = 0;
  std::size_t afterSeparator = 0;
  for (const wxUniChar c : line) {
    columns += ColumnsOf(c);
    if (columns > longestLine) return afterSeparator > length / 2 ? afterSeparator : length;
    ++length;
    if (c == ' ' || c == '/' || c == '\\') afterSeparator = length;
  }
  return length;
}

}  // namespace

wxString FilterForSystem(const wxString& filter) {
  wxArrayString parts = wxSplit(filter, '|', '\0');
  for (std::size_t i = 1; i < parts.size(); i += 2) {
#ifdef __WXGTK__
    if (parts[i] == "*.*") parts[i] = "*";
#endif
    if (parts[i] != parts[i].Upper()) parts[i] += ";" + parts[i].Upper();
  }
  return wxJoin(parts, '|', '\0');
}

wxString BreakLongLines(const wxString& text) {
  wxArrayString lines;
  for (wxString line : wxSplit(text, '\n', '\0')) {
    for (std::size_t part = FittingPart(line); part < line.length(); part = FittingPart(line)) {
      lines.Add(line.Left(part));
      line = line.Mid(part);
    }
    lines.Add(line);
  }
  return wxJoin(lines, '\n', '\0');
}

void WxDialogs::Message(const wxString& text, Icon icon) {
  const long style = wxOK | (icon == Icon::Critical ? wxICON_ERROR : wxICON_INFORMATION);
  MessageDialog dialog(parent_, BreakLongLines(text), productName, style);
  dialog.SetOKLabel(Wx(messages_.Msg(Text::Ok)));
  dialog.ShowModal();
}

void WxDialogs::Announce(const wxString& title, const wxString& text) {
  constexpr std::size_t longest = 50000;  // characters; the rest can be read in the text it was added to
  wxDialog dialog(parent_, wxID_ANY, title, wxDefaultPosition, wxDefaultSize,
                  wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER);
  const wxString shown = text.length() <= longest ? text : text.Left(longest) + "\n...";
  auto* sheet = new wxTextCtrl(&dialog, wxID_ANY, shown, wxDefaultPosition, dialog.FromDIP(wxSize(520, 280)),
                               wxTE_MULTILINE | wxTE_READONLY | wxTE_DONTWRAP);
  sheet->SetFont(wxFont(wxFontInfo().Family(wxFONTFAMILY_TELETYPE)));
  sheet->SetInsertionPoint(0);
  auto* button = new wxButton(&dialog, wxID_OK, Wx(messages_.Msg(Text::Ok)));
  auto* column = new wxBoxSizer(wxVERTICAL);
  column->Add(sheet, 1, wxEXPAND | wxALL, dialog.FromDIP(8));
  column->Add(button, 0, wxALIGN_RIGHT | wxLEFT | wxRIGHT | wxBOTTOM, dialog.FromDIP(8));
  dialog.SetSizerAndFit(column);
  dialog.SetEscapeId(wxID_OK);
  button->SetDefault();
  button->SetFocus();
  dialog.ShowModal();
}

bool WxDialogs::Confirm(const wxString& text) { return AnswerTo(text) == wxID_YES; }

bool WxDialogs::Offer(const wxString& text) {
  // With a button to cancel, Escape closes the dialog everywhere.
  MessageDialog dialog(parent_, BreakLongLines(text), productName, wxOK | wxCANCEL | wxICON_QUESTION);
  dialog.SetOKCancelLabels(Wx(messages_.Msg(Text::Yes)), Wx(messages_.Msg(Text::No)));
  return dialog.ShowModal() == wxID_OK;
}

int WxDialogs::AnswerTo(const wxString& question) {
  MessageDialog dialog(parent_, BreakLongLines(question), productName,
                       wxYES_NO | wxNO_DEFAULT | wxCANCEL | wxICON_EXCLAMATION);
  dialog.SetYesNoCancelLabels(Wx(messages_.Msg(Text::Yes)), Wx(messages_.Msg(Text::No)),
                              Wx(messages_.Msg(Text::Cancel)));
  return dialog.ShowModal();
}

std::optional<wxString> WxDialogs::Ask(const wxString& prompt, const wxString& initial) {
  wxTextEntryDialog dialog(parent_, prompt, productName, initial);
  for (const auto& [id, message] : {std::pair{wxID_OK, Text::Ok}, {wxID_CANCEL, Text::Cancel}})
    if (wxWindow* button = dialog.FindWindow(id)) button->SetLabel(Wx(messages_.Msg(message)));
  if (dialog.ShowModal() != wxID_OK) return {};
  return dialog.GetValue();
}

std::optional<std::filesystem::path> WxDialogs::OpenFile(const wxString& title, const wxString& filter,
                                                         const std::filesystem::path& current) {
  return ChooseFile(parent_, title, filter, current, wxFD_OPEN | wxFD_FILE_MUST_EXIST);
}

std::optional<std::filesystem::path> WxDialogs::SaveFile(const wxString& title, const wxString& filter,
                                                         const std::filesystem::path& current) {
  return ChooseFile(parent_, title, filter, current, wxFD_SAVE | wxFD_OVERWRITE_PROMPT);
}

std::optional<ReviewAnswer> WxDialogs::Show(const Review& review) {
  ReviewDialog dialog(parent_, messages_, review);
  const int answer = dialog.ShowModal();
  if (answer == wxID_OK) return ReviewAnswer();
  if (answer == wxID_APPLY) return ReviewAnswer{dialog.List().SelectedRows()};
  return {};
}

}  // namespace tarvelo
