#include "shell/settings/window_place.h"

#include <wx/display.h>
#include <wx/frame.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>
#include <utility>

#include "shell/platform/first_size.h"
#include "shell/settings/settings.h"

namespace tarvelo {
namespace {

constexpr char section[] = "Window";
constexpr int longestArrival = 500, shortestArrival = 30, soon = 100;  // milliseconds
constexpr int windowStep = 32;                                         // in device-independent pixels
constexpr std::array keys{"Left", "Top", "Width", "Height"};

std::optional<wxRect> StoredPlace(const Settings& settings) {
  std::array<int, keys.size()> values;
  for (std::size_t i = 0; i < keys.size(); ++i) {
    const std::string text = settings.GetIni(section, keys[i]);
    if (std::from_chars(text.data(), text.data() + text.size(), values[i]).ec != std::errc{}) return {};
  }
  return wxRect(values[0], values[1], values[2], values[3]);
}

// Whether the user could see and grab the title bar of a window at this place.
bool CanBeReached(const wxFrame& window, const wxRect& place) {
  const wxSize smallest = window.GetMinSize();
  return place.width >= smallest.x && place.height >= smallest.y &&
         wxDisplay::GetFromPoint(place.GetTopLeft() + wxPoint(place.width / 2, 10)) != wxNOT_FOUND;
}

// The place, cut to the size of the screen that holds its title bar.
wxRect FitScreen(wxRect place) {
  const int display = wxDisplay::GetFromPoint(place.GetTopLeft() + wxPoint(place.width / 2, 10));
  const wxRect screen = wxDisplay(static_cast<unsigned>(std::max(0, display))).GetClientArea();
  if (place.width > screen.width) place.x = screen.x;
  if (place.height > screen.height) place.y = screen.y;
  place.width = std::min(place.width, screen.width);
  place.height = std::min(place.height, screen.height);
  return place;
}

}  // namespace

WindowPlace::WindowPlace(wxFrame& window, const Settings& settings)
    : window_(window), isMaximized_(settings.GetIni(section, "Maximized") == "1") {
  const std::optional<wxRect> place = StoredPlace(settings);
  if (place && CanBeReached(window, *place)) {
    window.SetSize(FitScreen(*place));
  } else {
    window.SetSize(FitScreen(wxRect(window.FromDIP(wxSize(1000, 640)))).GetSize());
    window.Centre();
  }
  platform::StartInOwnSize(window);
  normal_ = window.GetRect();
  window.Bind(wxEVT_SHOW, [this](wxShowEvent& event) {
    event.Skip();
    if (!std::exchange(isShown_, true)) arrival_.StartOnce(isMaximized_ ? soon : longestArrival);
  });
  window.Bind(wxEVT_MOVE, [this](wxMoveEvent& event) {
    event.Skip();
    // Not at once: GTK is still showing it.
    if (isShown_ && !hasArrived_ && window_.GetPosition() != normal_.GetPosition())
      arrival_.StartOnce(shortestArrival);
  });
  arrival_.Bind(wxEVT_TIMER, [this](wxTimerEvent&) { Arrive(); });
  // By then all events of a change of state have come.
  window.Bind(wxEVT_IDLE, [this](wxIdleEvent& event) {
    event.Skip();
    if (hasArrived_ && !window_.IsMaximized() && !window_.IsIconized()) normal_ = window_.GetRect();
  });
}

// Some window managers place a new window themselves, and one that is maximised before it is shown would not
// know its normal size. Another size is the user's doing.
void WindowPlace::Arrive() {
  if (std::exchange(hasArrived_, true)) return;
  if (window_.GetPosition() != normal_.GetPosition() && !window_.IsMaximized())
    window_.Move(normal_.GetPosition());
  if (isMaximized_) window_.Maximize();
}

void WindowPlace::StoreForNext(Settings& settings) { Store(settings, ++next_ * window_.FromDIP(windowStep)); }

void WindowPlace::Store(Settings& settings, int shift) const {
  settings.SetIni(section, "Maximized", window_.IsMaximized() || (!hasArrived_ && isMaximized_) ? "1" : "0");
  const bool isNormal = hasArrived_ && !window_.IsMaximized() && !window_.IsIconized();
  wxRect place = isNormal ? window_.GetRect() : normal_;
  if (!hasArrived_ && !window_.IsMaximized()) place.SetSize(window_.GetSize());
  place.Offset(shift, shift);
  const std::array values{place.x, place.y, place.width, place.height};
  for (std::size_t i = 0; i < keys.size(); ++i) settings.SetIni(section, keys[i], std::to_string(values[i]));
}

}  // namespace tarvelo
