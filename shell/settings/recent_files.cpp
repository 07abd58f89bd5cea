#include "shell/settings/recent_files.h"

#include <algorithm>

#include "shell/base/strings.h"
#include "shell/settings/settings.h"
#include "text/unicode.h"

namespace tarvelo {
namespace {

std::string Key(const char* name, std::size_t index) { return name + std::to_string(index + 1); }

}  // namespace

void RecentFiles::Read(const Settings& settings) {
  files_ = {};
  for (const auto& [key, value] : settings.GetSec(section_))
    for (std::size_t i = 0; i < count; ++i) {
      if (ToUpper(key) == ToUpper(Key("File", i))) files_[i].path = value;
      if (ToUpper(key) == ToUpper(Key("Phone", i))) files_[i].phone = value;
    }
  // Closes gaps that were made by hand.
  std::stable_partition(files_.begin(), files_.end(), [](const File& file) { return !file.path.empty(); });
}

void RecentFiles::Write(Settings& settings) const {
  RecentFiles all(section_);
  all.Read(settings);
  for (const File& file : added_) all.Put(file);
  const auto write = [&](const std::string& key, const std::string& value) {
    // A closed gap leaves one over.
    if (!value.empty() || !settings.GetRaw(section_, key).empty()) settings.SetIni(section_, key, value);
  };
  for (std::size_t i = 0; i < count; ++i) {
    write(Key("File", i), all.files_[i].path);
    write(Key("Phone", i), all.files_[i].phone);
  }
}

void RecentFiles::Add(std::string_view path, std::string_view phone) {
  const File file{std::string(path), std::string(phone)};
  added_.push_back(file);
  Put(file);
}

void RecentFiles::Put(const File& file) {
  const auto same =
      std::ranges::find(files_, ToUpper(file.path), [](const File& known) { return ToUpper(known.path); });
  if (same != files_.end()) {
    same->phone = file.phone;
    return;
  }
  std::rotate(files_.begin(), files_.end() - 1, files_.end());
  files_.front() = file;
}

}  // namespace tarvelo
