#include "shell/files/file_preview.h"

#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include <algorithm>
#include <string>

#include "core/byte_text.h"
#include "core/notation.h"
#include "files/text_content.h"
#include "resources/messages.h"
#include "resources/texts.h"
#include "shell/base/strings.h"
#include "shell/files/file_melody.h"
#include "shell/files/file_picture.h"
#include "shell/files/piece_list.h"
#include "shell/pictures/picture_view.h"
#include "shell/platform/accessible_name.h"
#include "shell/ringtones/piano_roll.h"
#include "text/unicode.h"

namespace tarvelo {
namespace {

std::string HexLines(Bytes bytes) {
  constexpr std::size_t inLine = 16;
  std::string lines;
  for (std::size_t at = 0; at < bytes.size(); at += inLine) {
    const Bytes line = bytes.subspan(at, std::min(inLine, bytes.size() - at));
    std::string digits = AsHex(line);
    digits.resize(3 * inLine + 1, ' ');
    std::u16string characters;
    for (const std::uint8_t byte : line) characters += ShownCharacter(byte);
    lines.append(PadZero(Hex(static_cast<std::int64_t>(at)), 6)).append("  ").append(digits);
    lines.append(ToUtf8(characters)).append("\n");
  }
  return lines;
}

// "8192 / 20000" if not all is shown.
wxString Part(std::size_t shown, Offset size) {
  if (static_cast<Offset>(shown) >= size) return {};
  return wxString(", ") << shown << " / " << size;
}

wxString Seconds(std::int64_t milliseconds) {
  return milliseconds > 0 ? wxString::Format(", %.1f s", static_cast<double>(milliseconds) / 1000) : "";
}

wxTextCtrl* NewTextView(wxWindow* parent, long style) {
  auto* view = new wxTextCtrl(parent, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize,
                              wxTE_MULTILINE | wxTE_READONLY | wxTE_RICH2 | wxTE_NOHIDESEL | style);
  view->SetFont(wxFont(wxFontInfo().Family(wxFONTFAMILY_TELETYPE)));
  view->SetMargins(view->FromDIP(4));
  return view;
}

}  // namespace

FilePreview::FilePreview(wxWindow* parent)
    : wxPanel(parent),
      facts_(new wxStaticText(this, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize,
                              wxST_ELLIPSIZE_END | wxST_NO_AUTORESIZE)),
      picture_(new PictureView(this)),
      roll_(new PianoRoll(this)),
      text_(NewTextView(this, 0)),
      hex_(NewTextView(this, wxTE_DONTWRAP)),
      contents_{picture_, roll_, text_, hex_},
      pieces_(new PieceList(this)) {
  pieces_->SetMinSize(FromDIP(wxSize(250, 60)));
  auto* row = new wxBoxSizer(wxHORIZONTAL);
  for (wxWindow* content : contents_) {
    content->SetMinSize(FromDIP(wxSize(80, 40)));
    row->Add(content, 1, wxEXPAND);
  }
  row->Add(pieces_, 0, wxEXPAND | wxLEFT, FromDIP(4));
  auto* column = new wxBoxSizer(wxVERTICAL);
  column->Add(facts_, 0, wxEXPAND | wxALL, FromDIP(4));
  column->Add(row, 1, wxEXPAND);
  SetSizer(column);
  pieces_->Hide();
  ShowNotes(wxString());
}

wxString FilePreview::Facts() const { return facts_->GetLabelText(); }

wxString FilePreview::Shown() const {
  return text_->IsShown() ? text_->GetValue() : hex_->IsShown() ? hex_->GetValue() : wxString();
}

void FilePreview::ShowPieces(bool shown) {
  if (pieces_->IsShown() == shown) return;
  pieces_->Show(shown);
  Layout();
}

void FilePreview::Recaption(const Messages& messages) {
  pieces_->Recaption(messages);
  for (wxWindow* content : contents_)
    platform::SetAccessibleName(*content, Wx(messages.Msg(Text::ColumnData)));
}

void FilePreview::ShowContent(wxWindow* content, const wxString& facts) {
  facts_->SetLabelText(facts.empty() || notes_.empty() ? facts + notes_ : facts + " - " + notes_);
  const bool isPlaced = content->IsShown();
  for (wxWindow* other : contents_) other->Show(other == content);
  if (!isPlaced) Layout();
}

void FilePreview::ShowNotes(const wxString& notes) {
  notes_ = notes;
  melody_.clear();
  isSound_ = false;
  text_->Clear();
  ShowContent(text_, wxString());
}

void FilePreview::ShowFile(Bytes bytes, Offset size, const wxString& notes) {
  if (bytes.empty()) return ShowNotes(notes);
  notes_ = notes;
  melody_.clear();
  isSound_ = false;
  if (ShowPicture(bytes) || ShowSound(bytes) || ShowText(bytes, size)) return;
  ShowHex(bytes, size);
}

bool FilePreview::ShowPicture(Bytes bytes) {
  std::optional<FilePicture> picture = ReadPicture(bytes);
  if (!picture) {
    picture_->Show(std::nullopt);
    return false;
  }
  wxString facts = Wx(picture->format);
  facts << ", " << picture->bitmap.width << " x " << picture->bitmap.height;
  picture_->Show(std::move(picture->bitmap));
  picture_->FitWindow();
  ShowContent(picture_, facts);
  return true;
}

bool FilePreview::ShowSound(Bytes bytes) {
  if (const auto sound = ReadSound(bytes)) {
    isSound_ = true;
    roll_->ShowText(Wx(sound->format));
    ShowContent(roll_, Wx(sound->format) + Seconds(sound->time));
    return true;
  }
  melody_ = ReadMelody(bytes);
  if (melody_.empty()) return false;
  roll_->ShowMelody(melody_);
  ShowContent(roll_, "Mono" + Seconds(roll_->Length()));
  return true;
}

bool FilePreview::ShowText(Bytes bytes, Offset size) {
  const bool isCut = bytes.size() > mostText;
  const Bytes beginning = bytes.first(std::min(bytes.size(), mostText));
  const auto text = ReadText(beginning, isCut);
  if (!text) return false;
  text_->ChangeValue(Wx(text->text));
  text_->SetInsertionPoint(0);
  ShowContent(text_, Wx(text->encoding) + Part(beginning.size(), size));
  return true;
}

void FilePreview::ShowHex(Bytes bytes, Offset size) {
  const Bytes beginning = bytes.first(std::min(bytes.size(), mostHex));
  hex_->ChangeValue(Wx(HexLines(beginning)));
  hex_->SetInsertionPoint(0);
  ShowContent(hex_, "Hex" + Part(beginning.size(), size));
}

}  // namespace tarvelo
