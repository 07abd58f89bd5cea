#include "shell/settings/recent_files.h"

#include <algorithm>

#include "shell/base/strings.h"
#include "shell/settings/settings.h"
#include "text/unicode.h"

namespace tarvelo {
namespace {

std::string Key(std::size_t index) { return "File" + std::to_string(index + 1); }

}  // namespace

void RecentFiles::Read(const Settings& settings) {
  for (const auto& [key, value] : settings.GetSec(section_))
    for (std::size_t i = 0; i < count; ++i)
      if (ToUpper(key) == ToUpper(Key(i))) files_[i] = value;
  // Closes gaps that were made by hand.
  std::ranges::stable_partition(files_, [](const std::string& file) { return !file.empty(); });
}

void RecentFiles::Write(Settings& settings) const {
  for (std::size_t i = 0; i < count; ++i)
    if (!files_[i].empty() || !settings.GetRaw(section_, Key(i)).empty())  // a closed gap leaves one over
      settings.SetIni(section_, Key(i), files_[i]);
}

void RecentFiles::Add(std::string_view path) {
  const auto same = [name = ToUpper(path)](const std::string& file) { return ToUpper(file) == name; };
  if (std::ranges::any_of(files_, same)) return;
  std::ranges::rotate(files_, files_.end() - 1);
  files_.front() = path;
}

}  // namespace tarvelo
