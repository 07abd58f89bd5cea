// What is in a file: a picture, a melody, a text, or its bytes in hexadecimal, under a line of facts.
#pragma once

#include <wx/panel.h>

#include <array>
#include <vector>

#include "ringtones/melody.h"
#include "text/bytes.h"

class wxStaticText;
class wxTextCtrl;

namespace tarvelo {

class Messages;
class PianoRoll;
class PictureView;
class PieceList;

class FilePreview final : public wxPanel {
 public:
  // A longer file is read, and shown, only up to these many bytes.
  static constexpr Offset mostRead = 0x100000;
  static constexpr std::size_t mostText = 0x8000;
  static constexpr std::size_t mostHex = 0x2000;

  explicit FilePreview(wxWindow* parent);

  // Shows the bytes of a file of `size` bytes, the first mostRead of them at most. `notes` follow the facts.
  void ShowFile(Bytes bytes, Offset size, const wxString& notes);
  // Shows notes alone.
  void ShowNotes(const wxString& notes);
  // Shows or hides the list of pieces.
  void ShowPieces(bool shown);
  void Recaption(const Messages& messages);

  // The facts, and the text or the hexadecimal dump; empty while something else is shown.
  [[nodiscard]] wxString Facts() const;
  [[nodiscard]] wxString Shown() const;
  // The melody on display; empty if there is none.
  [[nodiscard]] const std::vector<Tone>& Melody() const { return melody_; }
  [[nodiscard]] bool IsSound() const { return isSound_; }  // a MIDI or WAVE file
  [[nodiscard]] PictureView& Picture() { return *picture_; }
  [[nodiscard]] PianoRoll& Roll() { return *roll_; }
  [[nodiscard]] PieceList& Pieces() { return *pieces_; }

 private:
  using wxPanel::Show;
  void ShowContent(wxWindow* content, const wxString& facts);
  [[nodiscard]] bool ShowPicture(Bytes bytes);
  [[nodiscard]] bool ShowSound(Bytes bytes);
  [[nodiscard]] bool ShowText(Bytes bytes, Offset size);
  void ShowHex(Bytes bytes, Offset size);

  wxStaticText* facts_;
  wxString notes_;
  PictureView* picture_;
  PianoRoll* roll_;
  wxTextCtrl* text_;
  wxTextCtrl* hex_;
  std::array<wxWindow*, 4> contents_;  // one of them is shown
  PieceList* pieces_;
  std::vector<Tone> melody_;
  bool isSound_ = false;
};

}  // namespace tarvelo
