#include "core/disk_names.h"

#include <algorithm>
#include <array>

#include "text/unicode.h"

namespace tarvelo {
namespace {

constexpr std::size_t longestExtension = 10;

bool IsAllowed(char16_t c) {
  constexpr std::u16string_view forbidden = u"<>:\"/\\|?*";
  const bool isControl = c < 0x20 || (c >= 0x7F && c < 0xA0);
  return !isControl && forbidden.find(c) == forbidden.npos;
}

// Names of devices, whatever stands behind a dot.
bool IsReserved(std::string_view name) {
  std::string stem = ToUpper(name.substr(0, name.find('.')));
  while (stem.ends_with(' ')) stem.pop_back();
  constexpr std::array<std::string_view, 7> devices{"CON",    "PRN",     "AUX",   "NUL",
                                                    "CONIN$", "CONOUT$", "CLOCK$"};
  if (std::ranges::find(devices, stem) != devices.end()) return true;
  if (!stem.starts_with("COM") && !stem.starts_with("LPT")) return false;
  constexpr std::array<std::string_view, 13> numbers{"0", "1", "2", "3",      "4",      "5",     "6",
                                                     "7", "8", "9", "\u00B9", "\u00B2", "\u00B3"};
  return std::ranges::find(numbers, stem.substr(3)) != numbers.end();
}

void Shorten(std::u16string& name, std::size_t longest) {
  if (name.size() <= longest) return;
  const std::size_t dot = name.rfind(u'.');
  std::u16string extension;
  if (dot != name.npos && name.size() - dot <= longestExtension) extension = name.substr(dot);
  name = name.substr(0, longest - extension.size()) + extension;
}

}  // namespace

std::string DiskName(std::string_view utf8, std::size_t longest) {
  std::u16string name = ToUtf16(utf8);
  Shorten(name, longest);
  for (char16_t& c : name)
    if (!IsAllowed(c)) c = u'_';
  for (auto c = name.rbegin(); c != name.rend() && (*c == u'.' || *c == u' '); ++c) *c = u'_';
  const std::string text = ToUtf8(name);
  return text.empty() || IsReserved(text) ? "_" + text : text;
}

std::string UniqueNames::Take(std::string_view name) {
  std::string unique(name);
  const std::size_t dot = std::min(name.rfind('.'), name.size());
  std::string key = ToUpper(name);
  std::size_t& number = numbers_[key];
  while (!taken_.insert(ToUpper(unique)).second) {
    number = std::max<std::size_t>(number, 1) + 1;
    unique = std::string(name.substr(0, dot)) + " (" + std::to_string(number) + ")" +
             std::string(name.substr(dot));
  }
  return unique;
}

}  // namespace tarvelo
