#include "shell/ringtones/melody_player.h"

#include <wx/dataview.h>
#include <wx/eventfilter.h>
#include <wx/evtloop.h>
#include <wx/menu.h>

#include <algorithm>
#include <chrono>
#include <memory>
#include <utility>
#include <vector>

#include "resources/texts.h"
#include "ringtones/melody.h"
#include "shell/base/strings.h"
#include "shell/platform/beeper.h"
#include "shell/services/ids.h"
#include "shell/services/status_bar.h"
#include "shell/services/workbench.h"

namespace tarvelo {
namespace {

using Clock = std::chrono::steady_clock;

std::int64_t MillisecondsSince(Clock::time_point begin) {
  return std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - begin).count();
}

// During its lifetime the main window's commands wait. Keys, commands and mouse actions call `stop`; what
// they do takes effect once the object is gone and the caller's command has returned.
class InputGuard final : public wxEventFilter {
 public:
  InputGuard(Frame& frame, std::function<void()> stop)
      : frame_(frame), window_(*wxGetTopLevelParent(&frame.Parent())), stop_(std::move(stop)) {
    wxEvtHandler::AddFilter(this);
  }
  ~InputGuard() override {
    wxEvtHandler::RemoveFilter(this);
    for (Delayed& delayed : after_) wxQueueEvent(delayed.target, delayed.event.release());
    if (isClosed_) window_.CallAfter([&window = window_] { window.Close(); });
  }

  int FilterEvent(wxEvent& event) override {
    const wxEventType type = event.GetEventType();
    if (type == wxEVT_MENU) return Command(event);
    auto* window = dynamic_cast<wxWindow*>(event.GetEventObject());
    // Message boxes stay usable, whoever opened them.
    if (!window || wxGetTopLevelParent(window) != &window_) return Event_Skip;
    if (type == wxEVT_CLOSE_WINDOW) return Close(event);
    if (const auto* key = dynamic_cast<wxKeyEvent*>(&event)) return Key(*window, *key);
    if (type == wxEVT_RIGHT_DOWN || type == wxEVT_RIGHT_UP || type == wxEVT_CONTEXT_MENU)
      return Event_Processed;
    // Events of the list control, which has already handled them, and a dropped file.
    if (type == wxEVT_DATAVIEW_SELECTION_CHANGED || type == wxEVT_DATAVIEW_ITEM_ACTIVATED ||
        type == wxEVT_DATAVIEW_ITEM_CONTEXT_MENU || type == wxEVT_DATAVIEW_COLUMN_HEADER_CLICK ||
        (type == wxEVT_ASYNC_METHOD_CALL && window == &window_))
      return Delay(*window, event);
    if (type == wxEVT_ASYNC_METHOD_CALL) return Keep(*window, event);
    return Event_Skip;
  }

 private:
  struct Delayed {
    wxEvtHandler* target;
    std::unique_ptr<wxEvent> event;
  };

  int Command(wxEvent& event) {
    stop_();
    if (event.GetId() != Id::StopPlaying)
      window_.CallAfter([&frame = frame_, id = event.GetId()] { frame.Run(id); });
    return Event_Processed;
  }

  int Close(wxEvent& event) {
    auto& close = dynamic_cast<wxCloseEvent&>(event);
    if (close.CanVeto()) close.Veto();
    isClosed_ = true;
    stop_();
    return Event_Processed;
  }

  // The control takes the key at once; the events that it sends of it wait. A context menu would keep the
  // melody from ending.
  int Key(wxWindow& window, const wxKeyEvent& key) {
    const int code = key.GetKeyCode();
    const bool isModifier =
        code == WXK_SHIFT || code == WXK_CONTROL || code == WXK_ALT || code == WXK_RAW_CONTROL;
    if (key.GetEventType() == wxEVT_KEY_UP || isModifier) return Event_Skip;
    const bool opensMenu = code == WXK_WINDOWS_MENU || code == WXK_MENU || code == WXK_F10;
    if (opensMenu && key.GetEventType() == wxEVT_CHAR_HOOK) return Delay(window, key);
    stop_();
    return code == WXK_ESCAPE ? Event_Processed : Event_Skip;
  }

  int Keep(wxEvtHandler& target, const wxEvent& event) {
    after_.push_back({&target, std::unique_ptr<wxEvent>(event.Clone())});
    return Event_Processed;
  }

  int Delay(wxEvtHandler& target, const wxEvent& event) {
    stop_();
    return Keep(target, event);
  }

  Frame& frame_;
  wxWindow& window_;
  std::function<void()> stop_;
  std::vector<Delayed> after_;
  bool isClosed_ = false;
};

// Runs an action at the end of the scope, however it is left.
class AtEnd {
 public:
  explicit AtEnd(std::function<void()> action) : action_(std::move(action)) {}
  ~AtEnd() { action_(); }
  AtEnd(const AtEnd&) = delete;
  AtEnd& operator=(const AtEnd&) = delete;

 private:
  std::function<void()> action_;
};

}  // namespace

void MelodyPlayer::PlayRing(std::string_view text) {
  if (std::exchange(isPlaying_, true)) return;
  isStopped_ = false;
  const AtEnd over([this] {
    isPlaying_ = false;
    if (onTime) onTime(std::nullopt);
  });
  const StatusHint hint(bench_.status, Wx(bench_.texts.Msg(Text::EscapeStops)));
  const InputGuard guard(bench_.frame, [this] { Stop(); });
  const AtEnd silence([this] { bench_.sound.Finish(); });
  PlayTones(text);
}

void MelodyPlayer::PlayTones(std::string_view text) {
  constexpr std::int64_t longestUnattended = 50;
  ProgressRun run(bench_.status, 0, static_cast<std::int64_t>(text.size()));
  std::int64_t time = 0;
  auto attended = Clock::now();
  for (std::size_t position = 0; !isStopped_;) {
    const std::size_t begin = position;
    const std::optional<Tone> tone = NextTone(text, position);
    if (!tone) return;
    const auto sounds = Clock::now();
    bench_.sound.BeepOn(tone->frequency, tone->duration, [&] {
      attended = Clock::now();
      return Attend(time + std::min<std::int64_t>(MillisecondsSince(sounds), tone->duration));
    });
    run.At(static_cast<std::int64_t>(begin));
    time += tone->duration;
    // BeepOn never calls back during zero-length tones, so this attends to the window.
    if (MillisecondsSince(attended) > longestUnattended) {
      Attend(time);
      attended = Clock::now();
    }
  }
}

// Shows the playing position and lets the windows repaint. False if the melody is to stop.
bool MelodyPlayer::Attend(std::int64_t time) {
  if (onTime) onTime(time);
  if (wxEventLoopBase* loop = wxEventLoopBase::GetActive()) loop->Yield(true);
  return !isStopped_;
}

}  // namespace tarvelo
