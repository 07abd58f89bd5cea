// The progress of a search in the status bar, with the hint that Escape stops it.
#pragma once

#include <memory>

#include "resources/messages.h"
#include "resources/texts.h"
#include "shell/base/strings.h"
#include "shell/services/status_bar.h"
#include "shell/services/workbench.h"

namespace tarvelo {

// Throws Stopped from the search when the user presses Escape.
class SearchProgress final : public Progress {
 public:
  explicit SearchProgress(Workbench& bench) : bench_(bench), progress_(bench.status) {}

  void Start(std::int64_t first, std::int64_t last) override {
    if (!hint_) hint_ = std::make_unique<StatusHint>(bench_.status, Wx(bench_.texts.Msg(Text::EscapeStops)));
    progress_.Start(first, last);
  }
  void At(std::int64_t position) override { progress_.At(position); }
  void Finish() override {
    progress_.Finish();
    hint_.reset();
  }

 private:
  Workbench& bench_;
  std::unique_ptr<StatusHint> hint_;  // while something is searched
  Interruptible progress_;
};

}  // namespace tarvelo
