// The status bar: ten panels, and a progress bar that covers the middle ones while a command runs.
//
//   1      path of the fullflash
//   2      phone and firmware
//   3 - 8  figures of the explorers
//   9      "P" while the patch holds unsaved data
//   10     "F" after the image was edited
//
// These letters are the only place where the two "changed" flags are stored.
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

  // Panels count from 1. These are their own texts, even while ShowHelp covers some of them.
  [[nodiscard]] wxString Panel(int number) const;
  void SetPanel(int number, const wxString& text);
  // Empties panels first .. 10.
  void ClearFrom(int first);

  // Shows help for a menu entry in place of the first two panels; an empty text restores them.
  void ShowHelp(const wxString& help);

  // Sets the widths of the panels: the figures are as wide as their texts, and the path takes the remaining
  // width.
  void FitPanels();

  // The tooltips say what the panels mean. Those of the first two include their text.
  void Recaption(const Messages& messages);
  [[nodiscard]] wxString Tooltip(int number) const;

  // The progress bar: visible during a run. The window repaints, but accepts no input.
  void Start(std::int64_t first, std::int64_t last) override;
  void At(std::int64_t position) override;
  void Finish() override;
  // True while Escape is held down.
  [[nodiscard]] bool StopAsked() override;

 private:
  using Clock = std::chrono::steady_clock;

  void ShowTexts();
  void PlaceProgressBar();
  void ShowTooltip(wxMouseEvent& event);

  wxGauge* progressBar_;
  std::array<wxString, panels> labels_;
  std::array<wxString, panels> texts_;
  wxString help_;
  std::int64_t first_ = 0;
  std::int64_t span_ = 1;
  Clock::time_point nextMove_;
  Clock::time_point nextAsk_;
  bool isStopAsked_ = false;
  int hovered_ = 0;
};

// Shows a hint in the second panel during its lifetime. A text that replaces the hint stays.
class StatusHint {
 public:
  StatusHint(StatusBar& bar, const wxString& hint) : bar_(bar), before_(bar.Panel(2)), hint_(hint) {
    bar_.SetPanel(2, hint_);
  }
  ~StatusHint() {
    if (bar_.Panel(2) == hint_) bar_.SetPanel(2, before_);
  }
  StatusHint(const StatusHint&) = delete;
  StatusHint& operator=(const StatusHint&) = delete;

 private:
  StatusBar& bar_;
  wxString before_;
  wxString hint_;
};

}  // namespace tarvelo
