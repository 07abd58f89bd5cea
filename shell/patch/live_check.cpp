#include "shell/patch/live_check.h"

#include <utility>

#include "document/document.h"
#include "shell/patch/patch_editor.h"

namespace tarvelo {
namespace {

constexpr int longDocument = 1 << 20;  // bytes
constexpr int pauseTime = 400;         // milliseconds
constexpr std::size_t linesPerStep = 5000;

// Makes the loop become idle once more.
void WakeUp(wxWindow& window) {
  window.CallAfter([] {});
}

}  // namespace

LiveCheck::LiveCheck(Document& document, PatchEditor& editor, std::function<void()> done)
    : document_(document), editor_(editor), done_(std::move(done)) {
  editor_.verdictOn = [this](std::size_t line) -> std::optional<LineVerdict> {
    const DocumentCheck* check = Complete();
    if (!check) return {};
    return check->At(line);
  };
  editor_.Bind(wxEVT_IDLE, &LiveCheck::Step, this);
  pause_.Bind(wxEVT_TIMER, [this](wxTimerEvent&) { WakeUp(editor_); });
}

void LiveCheck::Restart() {
  check_.reset();
  isWanted_ = document_.IsOpen();
  if (isWanted_ && editor_.GetLength() > longDocument) pause_.StartOnce(pauseTime);
  WakeUp(editor_);
  done_();
}

const DocumentCheck* LiveCheck::Complete() const {
  return check_ && check_->IsDone() ? check_.get() : nullptr;
}

const DocumentCheck* LiveCheck::Finish(Progress& progress) {
  if (!check_) Begin();
  if (!check_->Step(linesPerStep)) return check_.get();
  ProgressRun run(progress, 0, 2 * std::int64_t{editor_.GetLineCount()});  // every line is read, then judged
  for (std::int64_t at = linesPerStep; check_->Step(linesPerStep); at += linesPerStep) {
    run.At(at);
    if (run.StopAsked()) return nullptr;
  }
  return check_.get();
}

void LiveCheck::Begin() {
  check_ =
      std::make_unique<DocumentCheck>(editor_.Document(), OriginalOf(document_.Image(), document_.Edits()));
}

void LiveCheck::Step(wxIdleEvent& event) {
  event.Skip();
  if (!isWanted_ || pause_.IsRunning() || !editor_.IsShownOnScreen()) return;
  if (!check_) Begin();
  if (check_->Step(linesPerStep)) return event.RequestMore();
  isWanted_ = false;
  editor_.ShowVerdicts();
  done_();
  event.RequestMore();  // for those who waited for it
}

}  // namespace tarvelo
