// The status bar: ten panels, and the progress bar that lies over the middle ones while a command
// runs.
//
//   1      path of the fullflash
//   2      phone and firmware
//   3 - 8  figures of the explorers
//   9      "P" while the patch holds unsaved data
//   10     "F" after the image was edited
//
// The letters are the only store of the two "changed" flags.
#pragma once

#include <wx/statusbr.h>

#include <array>
#include <chrono>

#include "core/progress.h"

class wxGauge;

namespace tarvelo {

class Messages;

class StatusBar final : public wxStatusBar, public Progress {
 public:
  static constexpr int panels = 10;
  static constexpr int patchPanel = 9;
  static constexpr int imagePanel = 10;

  explicit StatusBar(wxWindow* parent);

  // Panels count from 1. Their texts are these, whatever ShowHelp shows in the place of some.
  [[nodiscard]] wxString Panel(int number) const;
  void SetPanel(int number, const wxString& text);
  // Empties panels first .. 10.
  void ClearFrom(int first);

  // Explains a menu entry in the place of the first two panels; an empty text gives it back to them.
  void ShowHelp(const wxString& help);

  // Gives the panels their widths: the path takes what is left, the figures are as wide as their texts.
  void FitPanels();

  // What the mouse shows over panels 1, 2, 9 and 10, with the text of the first two.
  void Recaption(const Messages& messages);
  [[nodiscard]] wxString Tooltip(int number) const;

  // The progress bar: shown while a run lasts. The window repaints, but takes no input.
  void Start(std::int64_t first, std::int64_t last) override;
  void At(std::int64_t position) override;
  void Finish() override;
  // Escape is held down.
  [[nodiscard]] bool StopAsked() override;

 private:
  using Clock = std::chrono::steady_clock;

  void ShowTexts();
  void PlaceProgressBar();
  void ShowTooltip(wxMouseEvent& event);

  wxGauge* ProgressBar;
  std::array<wxString, panels> labels_;
  std::array<wxString, panels> texts_;
  wxString help_;
  std::int64_t first_ = 0;
  std::int64_t span_ = 1;
  Clock::time_point nextMove_;
  int hovered_ = 0;
};

// Shows a hint in the second panel while it lives.
class StatusHint {
 public:
  StatusHint(StatusBar& bar, const wxString& hint) : bar_(bar), before_(bar.Panel(2)) {
    bar_.SetPanel(2, hint);
  }
  ~StatusHint() { bar_.SetPanel(2, before_); }
  StatusHint(const StatusHint&) = delete;
  StatusHint& operator=(const StatusHint&) = delete;

 private:
  StatusBar& bar_;
  wxString before_;
};

}  // namespace tarvelo
