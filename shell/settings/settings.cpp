#include "shell/settings/settings.h"

#include <wx/filename.h>
#include <wx/stdpaths.h>

#include <algorithm>

#include "shell/base/strings.h"
#include "shell/platform/ini.h"
#include "shell/settings/program_files.h"
#include "text/unicode.h"

namespace tarvelo {

std::string Settings::GetIni(std::string_view section, std::string_view key) const {
  return ToUpper(platform::ReadIni(file_, std::string(section), std::string(key)));
}

void Settings::SetIni(std::string_view section, std::string_view key, std::string_view value) {
  std::string line(value);
  std::ranges::replace_if(
      line, [](unsigned char c) { return c < 0x20; }, ' ');  // a key takes one line
  platform::WriteIni(file_, std::string(section), std::string(key), line);
}

std::vector<std::pair<std::string, std::string>> Settings::GetSec(std::string_view section) const {
  return platform::ReadIniSection(file_, std::string(section));
}

std::string Settings::GetRaw(std::string_view section, std::string_view key) const {
  for (const auto& [name, value] : GetSec(section))
    if (ToUpper(name) == ToUpper(key)) return value;
  return {};
}

std::filesystem::path Settings::DefaultFile() {
  constexpr char name[] = "Tarvelo.ini";
  wxStandardPaths& paths = wxStandardPaths::Get();
  paths.SetFileLayout(wxStandardPaths::FileLayout_XDG);
  const std::filesystem::path beside = ProgramFolder();
  const bool installed = DataFolder() != beside;
  if (!installed && wxFileName::IsDirWritable(WxPath(beside))) return beside / name;
  const std::filesystem::path folder = PathFrom(paths.GetUserConfigDir()) / "Tarvelo";
  std::error_code ignored;
  std::filesystem::create_directories(folder, ignored);
  return folder / name;
}

}  // namespace tarvelo
