#include <windows.h>

#include <array>

#include "core/file.h"
#include "shell/platform/ini.h"
#include "shell/strings.h"

namespace tarvelo::platform {
namespace {

// The private-profile functions speak the system's code page. The program's manifest makes that
// UTF-8 where Windows knows how to; elsewhere the texts are converted.
std::string ToSystem(const std::string& utf8) {
  return GetACP() == CP_UTF8 ? utf8 : std::string(Wx(utf8).mb_str(wxConvLocal));
}

std::string FromSystem(const std::string& text) {
  return GetACP() == CP_UTF8 ? text : Utf8(wxString(text.data(), wxConvLocal, text.size()));
}

}  // namespace

std::string ReadIni(const std::filesystem::path& file, const std::string& section, const std::string& key) {
  std::array<char, 256> buffer{};
  const DWORD length =
      GetPrivateProfileStringA(section.c_str(), key.c_str(), "", buffer.data(),
                               static_cast<DWORD>(buffer.size()), ToSystem(PathText(file)).c_str());
  return FromSystem({buffer.data(), length});
}

void WriteIni(const std::filesystem::path& file, const std::string& section, const std::string& key,
              const std::string& value) {
  WritePrivateProfileStringA(section.c_str(), key.c_str(), ToSystem(value).c_str(),
                             ToSystem(PathText(file)).c_str());
}

std::vector<std::pair<std::string, std::string>> ReadIniSection(const std::filesystem::path& file,
                                                                const std::string& section) {
  std::string buffer(32767, '\0');
  const DWORD length = GetPrivateProfileSectionA(section.c_str(), buffer.data(),
                                                 static_cast<DWORD>(buffer.size()),
                                                 ToSystem(PathText(file)).c_str());
  // "key=value" after "key=value", each ended by a zero.
  std::vector<std::pair<std::string, std::string>> pairs;
  for (std::size_t at = 0; at < length;) {
    const std::string line = buffer.c_str() + at;
    at += line.size() + 1;
    const auto equals = line.find('=');
    if (equals != line.npos)
      pairs.emplace_back(FromSystem(line.substr(0, equals)), FromSystem(line.substr(equals + 1)));
  }
  return pairs;
}

}  // namespace tarvelo::platform
