// The line above a view of the image: type a place, press Enter, and the view goes there. While one types, it
// shows which place it understands, and what is known to lie there.
#pragma once

#include <wx/panel.h>

#include <functional>
#include <optional>
#include <string>

#include "core/places.h"

class wxChoice;
class wxStaticText;
class wxTextCtrl;

namespace tarvelo {

class Messages;
struct Workbench;

class PlaceLine final : public wxPanel {
 public:
  // `form`: what two numbers with a colon mean in this view.
  PlaceLine(wxWindow* parent, Workbench& bench, ColonForm form);

  // What two numbers with a colon mean from now on.
  void SetForm(ColonForm form) { form_ = form; }

  // Puts the caret into the line and selects its text.
  void Start();
  // Reads the place and goes there; if it cannot, shows why.
  void Enter();
  void ClearFault();
  void Recaption(const Messages& messages);

  [[nodiscard]] wxTextCtrl& Field() { return *place_; }
  [[nodiscard]] wxChoice& Kind() { return *kind_; }
  [[nodiscard]] wxStaticText& Fault() { return *fault_; }

  std::function<void(Offset)> onGo;
  std::function<Offset()> from;  // the place that "+10" counts from; empty: the start of the image

 private:
  [[nodiscard]] std::optional<Offset> Read(const std::string& text) const;
  [[nodiscard]] std::string Understood() const;
  void ShowFault(const wxString& text);
  void ShowBeside(const wxString& text, bool isFault);
  [[nodiscard]] bool IsNarrow() const;
  void PlaceFault();
  void FitFault();

  Workbench& bench_;
  ColonForm form_;
  wxStaticText* caption_;
  wxTextCtrl* place_;
  wxChoice* kind_;
  wxStaticText* fault_;
  bool isFaultBelow_ = false;
};

}  // namespace tarvelo
