// A button of the bar of panels: a picture, a name and a figure.
#pragma once

#include <wx/window.h>

#include <functional>
#include <optional>
#include <string>

namespace tarvelo {

struct PanelButtonTraits {
  int id = 0;        // of ids.h
  std::string icon;  // of DrawIcon
  char letter = 0;   // if there is no such icon
};

class PanelButton final : public wxWindow {
 public:
  PanelButton(wxWindow* parent, PanelButtonTraits traits);

  [[nodiscard]] const PanelButtonTraits& Traits() const { return traits_; }
  [[nodiscard]] const wxString& Caption() const { return caption_; }
  [[nodiscard]] const wxString& Figure() const { return figure_; }
  [[nodiscard]] bool IsMarked() const { return isMarked_; }

  // The name, and the shortcut that the tooltip adds.
  void SetCaption(const wxString& caption, const wxString& shortcut);
  // How many things the panel has, if that is known.
  void SetFigure(std::optional<std::size_t> figure);
  // Marks the button of the visible panel.
  void Mark(bool isMarked);
  // The button that Tab stops at.
  void SetTabStop(bool isTabStop) { isTabStop_ = isTabStop; }
  // Without names only the picture is shown.
  void ShowName(bool isShown);
  // The width that name and figure need.
  [[nodiscard]] int NeededWidth() const;

  [[nodiscard]] bool AcceptsFocusFromKeyboard() const override { return isTabStop_ && IsEnabled(); }
  bool Enable(bool enable = true) override;

  std::function<void()> onClick;

 private:
  void Paint();
  void DrawTexts(wxDC& dc, const wxColour& colour);
  void Explain();

  PanelButtonTraits traits_;
  wxString caption_;
  wxString shortcut_;
  wxString figure_;
  std::optional<std::size_t> count_;
  bool isMarked_ = false;
  bool isTabStop_ = false;
  bool isNameShown_ = true;
  bool isHovered_ = false;
};

}  // namespace tarvelo
