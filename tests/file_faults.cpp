#include "file_faults.h"

#include <gtest/gtest.h>

#include "core/file.h"
#include "temporary_folder.h"

#ifdef _WIN32
#include <windows.h>
#else
#include <sys/resource.h>

#include <csignal>
#endif

namespace tarvelo {

#ifdef _WIN32

const bool FullDisk::isPossible = false;
FullDisk::FullDisk() = default;
FullDisk::~FullDisk() = default;

const bool OpenElsewhere::isPossible = true;
OpenElsewhere::OpenElsewhere(const std::filesystem::path& file)
    : handle_(CreateFileW(file.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr)) {
  EXPECT_NE(handle_, INVALID_HANDLE_VALUE);
}
OpenElsewhere::~OpenElsewhere() { CloseHandle(handle_); }

#else

namespace {

void LimitFiles(rlim_t size) {
  rlimit limit{};
  getrlimit(RLIMIT_FSIZE, &limit);
  limit.rlim_cur = std::min(size, limit.rlim_max);
  setrlimit(RLIMIT_FSIZE, &limit);
}

}  // namespace

const bool FullDisk::isPossible = true;
FullDisk::FullDisk() {
  std::signal(SIGXFSZ, SIG_IGN);  // the write fails instead
  LimitFiles(10);
}
FullDisk::~FullDisk() { LimitFiles(RLIM_INFINITY); }

const bool OpenElsewhere::isPossible = false;
OpenElsewhere::OpenElsewhere(const std::filesystem::path&) {}
OpenElsewhere::~OpenElsewhere() = default;

#endif

std::map<std::string, std::optional<std::string>> ContentsOf(const std::filesystem::path& folder) {
  std::map<std::string, std::optional<std::string>> contents;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
    auto& content = contents[PathText(entry.path().lexically_relative(folder))];
    if (entry.is_regular_file()) content = ReadAll(entry.path());
  }
  return contents;
}

}  // namespace tarvelo
