#include "shell/melody_player.h"

#include <wx/eventfilter.h>
#include <wx/evtloop.h>
#include <wx/menu.h>

#include <algorithm>
#include <chrono>
#include <memory>
#include <utility>
#include <vector>

#include "media/melody.h"
#include "shell/main.h"
#include "shell/strings.h"

namespace tarvelo {
namespace {

using Clock = std::chrono::steady_clock;

std::int64_t MillisecondsSince(Clock::time_point begin) {
  return std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - begin).count();
}

// While it lives the main window takes no input. What stops the melody calls `stop`; what is to be done
// after it is done when the object has gone and the caller's command has returned.
class InputGuard final : public wxEventFilter {
 public:
  InputGuard(Main& main, std::function<void()> stop) : main_(main), stop_(std::move(stop)) {
    wxEvtHandler::AddFilter(this);
  }
  ~InputGuard() override {
    wxEvtHandler::RemoveFilter(this);
    for (std::unique_ptr<wxEvent>& event : after_) wxQueueEvent(&main_, event.release());
    if (isClosed_) main_.CallAfter([&main = main_] { main.Close(); });
  }

  int FilterEvent(wxEvent& event) override {
    const wxEventType type = event.GetEventType();
    if (type == wxEVT_MENU) return Command(event);
    if (type == wxEVT_CLOSE_WINDOW && event.GetEventObject() == &main_) return Close(event);
    // A dropped file, for one: what the main window has put off until there is nothing else to do.
    if (type == wxEVT_ASYNC_METHOD_CALL && event.GetEventObject() == &main_) return DoAfter(event);
    if (!IsInput(event) || !IsOfMain(event)) return Event_Skip;
    const auto* key = dynamic_cast<wxKeyEvent*>(&event);
    if (key && key->GetKeyCode() == WXK_ESCAPE) stop_();
    return Event_Processed;
  }

 private:
  int Command(wxEvent& event) {
    stop_();
    if (event.GetId() != StopPlaying) main_.CallAfter([&main = main_, id = event.GetId()] { main.Run(id); });
    return Event_Processed;
  }

  int Close(wxEvent& event) {
    auto& close = dynamic_cast<wxCloseEvent&>(event);
    if (close.CanVeto()) close.Veto();
    isClosed_ = true;
    stop_();
    return Event_Processed;
  }

  int DoAfter(wxEvent& event) {
    after_.emplace_back(event.Clone());
    stop_();
    return Event_Processed;
  }

  // Keys and buttons pressed, and what controls make of them. Buttons let go do nothing by themselves,
  // and controls that saw them pressed need to know.
  static bool IsInput(const wxEvent& event) {
    const wxEventType type = event.GetEventType();
    if (type == wxEVT_LEFT_UP || type == wxEVT_MIDDLE_UP || type == wxEVT_MOTION ||
        type == wxEVT_ENTER_WINDOW || type == wxEVT_LEAVE_WINDOW || type == wxEVT_KEY_UP ||
        type == wxEVT_UPDATE_UI)
      return false;
    return event.GetEventCategory() == wxEVT_CATEGORY_USER_INPUT;
  }

  // Message boxes stay usable, whoever shows them; so does the menu bar.
  bool IsOfMain(const wxEvent& event) const {
    auto* window = dynamic_cast<wxWindow*>(event.GetEventObject());
    return window && window != main_.GetMenuBar() && wxGetTopLevelParent(window) == &main_;
  }

  Main& main_;
  std::function<void()> stop_;
  std::vector<std::unique_ptr<wxEvent>> after_;
  bool isClosed_ = false;
};

// Does something when the scope ends, by whatever way.
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
  const StatusHint hint(main_.Status(), Wx(main_.Texts().Msg(225)));
  const InputGuard guard(main_, [this] { Stop(); });
  const AtEnd silence([this] { main_.Sound().Finish(); });
  PlayTones(text);
}

void MelodyPlayer::PlayTones(std::string_view text) {
  constexpr std::int64_t longestUnattended = 50;
  ProgressRun run(main_.Status(), 0, static_cast<std::int64_t>(text.size()));
  std::int64_t time = 0;
  auto attended = Clock::now();
  for (std::size_t position = 0; !isStopped_;) {
    const std::size_t begin = position;
    const std::optional<Tone> tone = NextTone(text, position);
    if (!tone) return;
    const auto sounds = Clock::now();
    main_.Sound().BeepOn(tone->frequency, tone->duration, [&] {
      attended = Clock::now();
      return Attend(time + std::min<std::int64_t>(MillisecondsSince(sounds), tone->duration));
    });
    run.At(static_cast<std::int64_t>(begin));
    time += tone->duration;
    // Tones of no length leave no time for this.
    if (MillisecondsSince(attended) > longestUnattended) {
      Attend(time);
      attended = Clock::now();
    }
  }
}

// Shows where the melody is and lets the windows repaint. False when it is to stop.
bool MelodyPlayer::Attend(std::int64_t time) {
  if (onTime) onTime(time);
  if (wxEventLoopBase* loop = wxEventLoopBase::GetActive()) loop->Yield(true);
  return !isStopped_;
}

}  // namespace tarvelo
