#include <windows.h>

#include <array>

#include "core/file.h"
#include "shell/base/strings.h"
#include "shell/platform/ini.h"

namespace tarvelo::platform {
namespace {

// The private-profile functions use the system's code page. The program's manifest makes that UTF-8 on
// versions of Windows that support it, and an older one-byte code page passes every byte through unchanged:
// the file is UTF-8 there too. Only a two-byte code page needs a conversion.
bool BytesPass() {
  CPINFO info;
  return GetACP() == CP_UTF8 || (GetCPInfo(CP_ACP, &info) && info.MaxCharSize == 1);
}

std::string FileName(const std::filesystem::path& file) {
  return GetACP() == CP_UTF8 ? PathText(file) : std::string(WxPath(file).mb_str(wxConvLocal));
}

std::string ToSystem(const std::string& utf8) {
  return BytesPass() ? utf8 : std::string(Wx(utf8).mb_str(wxConvLocal));
}

// Another program wrote a value that is not UTF-8, in the system's code page.
std::string FromSystem(const std::string& text) {
  const wxString utf8 = wxString::FromUTF8(text.data(), text.size());
  return utf8.empty() ? Utf8(wxString(text.data(), wxConvLocal, text.size())) : text;
}

}  // namespace

std::string ReadIni(const std::filesystem::path& file, const std::string& section, const std::string& key) {
  std::array<char, 256> buffer{};
  const DWORD length = GetPrivateProfileStringA(section.c_str(), key.c_str(), "", buffer.data(),
                                                static_cast<DWORD>(buffer.size()), FileName(file).c_str());
  return FromSystem({buffer.data(), length});
}

void WriteIni(const std::filesystem::path& file, const std::string& section, const std::string& key,
              const std::string& value) {
  const DWORD attributes = GetFileAttributesW(file.c_str());
  if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY)) return;
  WritePrivateProfileStringA(section.c_str(), key.c_str(), ToSystem(value).c_str(), FileName(file).c_str());
}

std::vector<std::pair<std::string, std::string>> ReadIniSection(const std::filesystem::path& file,
                                                                const std::string& section) {
  std::string buffer(32767, '\0');
  const DWORD length = GetPrivateProfileSectionA(section.c_str(), buffer.data(),
                                                 static_cast<DWORD>(buffer.size()), FileName(file).c_str());
  // A sequence of "key=value", each terminated by a zero.
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
