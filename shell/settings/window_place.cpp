#include "shell/settings/window_place.h"

#include <wx/display.h>
#include <wx/frame.h>

#include <array>
#include <charconv>
#include <optional>

#include "shell/settings/settings.h"

namespace tarvelo {
namespace {

constexpr char section[] = "Window";
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

}  // namespace

void RestorePlace(wxFrame& window, const Settings& settings) {
  const std::optional<wxRect> place = StoredPlace(settings);
  if (place && CanBeReached(window, *place)) {
    window.SetSize(*place);
  } else {
    window.SetSize(window.FromDIP(wxSize(1000, 640)));
    window.Centre();
  }
  if (settings.GetIni(section, "Maximized") == "1") window.Maximize();
}

void StorePlace(wxFrame& window, Settings& settings) {
  settings.SetIni(section, "Maximized", window.IsMaximized() ? "1" : "0");
  if (window.IsMaximized() || window.IsIconized()) return;  // keep the last normal place
  const wxRect place = window.GetRect();
  const std::array values{place.x, place.y, place.width, place.height};
  for (std::size_t i = 0; i < keys.size(); ++i) settings.SetIni(section, keys[i], std::to_string(values[i]));
}

}  // namespace tarvelo
