#include "shell/dialogs.h"

#include <wx/filedlg.h>
#include <wx/msgdlg.h>

#include "resources/messages.h"
#include "shell/product.h"
#include "shell/strings.h"

namespace tarvelo {
namespace {

std::optional<std::filesystem::path> Ask(wxWindow* parent, const wxString& title, const wxString& filter,
                                         const std::filesystem::path& current, long style) {
  wxFileDialog dialog(parent, title, WxPath(current.parent_path()), WxPath(current.filename()), filter,
                      style);
  if (dialog.ShowModal() != wxID_OK) return {};
  return PathFrom(dialog.GetPath());
}

}  // namespace

void WxDialogs::Message(const wxString& text, Icon icon) {
  const long style = wxOK | (icon == Icon::Critical ? wxICON_ERROR : wxICON_INFORMATION);
  wxMessageDialog dialog(parent_, text, productName, style);
  dialog.SetOKLabel(Wx(messages_.Msg(215)));
  dialog.ShowModal();
}

bool WxDialogs::Confirm(const wxString& text) {
  wxMessageDialog dialog(parent_, text, productName, wxYES_NO | wxCANCEL | wxICON_EXCLAMATION);
  dialog.SetYesNoCancelLabels(Wx(messages_.Msg(212)), Wx(messages_.Msg(213)), Wx(messages_.Msg(214)));
  return dialog.ShowModal() == wxID_YES;
}

std::optional<std::filesystem::path> WxDialogs::OpenFile(const wxString& title, const wxString& filter,
                                                         const std::filesystem::path& current) {
  return Ask(parent_, title, filter, current, wxFD_OPEN | wxFD_FILE_MUST_EXIST);
}

std::optional<std::filesystem::path> WxDialogs::SaveFile(const wxString& title, const wxString& filter,
                                                         const std::filesystem::path& current) {
  return Ask(parent_, title, filter, current, wxFD_SAVE | wxFD_OVERWRITE_PROMPT);
}

}  // namespace tarvelo
