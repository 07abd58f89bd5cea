#include "shell/hex/hex_look.h"

#include <charconv>
#include <string>

#include "shell/settings/settings.h"

namespace tarvelo {
namespace {

constexpr char lookSection[] = "HexView";

int ReadNumber(const Settings& settings, const char* key, int usual, int least, int most) {
  const std::string text = settings.GetIni(lookSection, key);
  int value = usual;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  const bool isNumber = error == std::errc{} && end == text.data() + text.size();
  return isNumber && value >= least && value <= most ? value : usual;
}

}  // namespace

HexLook ReadLook(const Settings& settings) {
  const HexLook usual;
  const auto read = [&](const char* key, int value, int least, int most) {
    return ReadNumber(settings, key, value, least, most);
  };
  HexLook look;
  look.bytes = read("Columns", usual.bytes, 0, HexColumns::mostBytes);
  if (look.bytes != 0 && look.bytes != 8 && look.bytes != 32) look.bytes = usual.bytes;
  look.encoding = static_cast<TextEncoding>(read("Encoding", 0, 0, std::ssize(encodingNames) - 1));
  look.zoom = read("Zoom", usual.zoom, HexLook::smallest, HexLook::largest);
  look.mapColours = read("Map", 1, 0, 1) != 0;
  look.showsValues = read("Values", 1, 0, 1) != 0;
  look.showsOther = read("Other", 1, 0, 1) != 0;
  return look;
}

void StoreLook(Settings& settings, const HexLook& look) {
  const auto store = [&](const char* key, int value) {
    const std::string text = std::to_string(value);
    if (settings.GetIni(lookSection, key) != text) settings.SetIni(lookSection, key, text);
  };
  store("Columns", look.bytes);
  store("Encoding", static_cast<int>(look.encoding));
  store("Zoom", look.zoom);
  store("Map", look.mapColours);
  store("Values", look.showsValues);
  store("Other", look.showsOther);
}

}  // namespace tarvelo
