#include <SimpleIni.h>

#include <limits>

#include "core/file.h"
#include "shell/platform/ini.h"

namespace tarvelo::platform {
namespace {

constexpr std::size_t longestValue = 255;
constexpr std::uint64_t longestFile = 1 << 20;  // a larger one is no settings file of ours

// The file's contents; false where it could not be read, so that nobody writes over it.
bool Load(CSimpleIniA& ini, const std::filesystem::path& file) try {
  ini.SetSpaces(false);
  if (!FileExist(file)) return true;
  NoProgress progress;
  const FileBytes bytes = ReadFile(file, longestFile, progress);
  return ini.LoadData(reinterpret_cast<const char*>(bytes.data.get()), bytes.size) >= 0;
} catch (const FileError&) {
  return false;
}

}  // namespace

std::string ReadIni(const std::filesystem::path& file, const std::string& section, const std::string& key) {
  CSimpleIniA ini(true);
  if (!Load(ini, file)) return {};
  return std::string(ini.GetValue(section.c_str(), key.c_str(), "")).substr(0, longestValue);
}

void WriteIni(const std::filesystem::path& file, const std::string& section, const std::string& key,
              const std::string& value) {
  CSimpleIniA ini(true);
  if (!Load(ini, file)) return;
  ini.SetValue(section.c_str(), key.c_str(), value.c_str());
  std::string text;
  ini.Save(text);
  // Written beside and put in place whole: a full disk leaves the old settings.
  std::filesystem::path fresh = file;
  fresh += ".new";
  try {
    WriteFile(fresh, text);
    std::filesystem::rename(fresh, file);
  } catch (const std::exception&) {
    std::error_code ignored;
    std::filesystem::remove(fresh, ignored);
  }
}

std::vector<std::pair<std::string, std::string>> ReadIniSection(const std::filesystem::path& file,
                                                                const std::string& section) {
  std::vector<std::pair<std::string, std::string>> pairs;
  CSimpleIniA ini(true);
  if (!Load(ini, file)) return pairs;
  CSimpleIniA::TNamesDepend keys;
  ini.GetAllKeys(section.c_str(), keys);
  keys.sort(CSimpleIniA::Entry::LoadOrder());
  for (const CSimpleIniA::Entry& key : keys)
    pairs.emplace_back(key.pItem, ini.GetValue(section.c_str(), key.pItem, ""));
  return pairs;
}

}  // namespace tarvelo::platform
