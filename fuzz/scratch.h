// A temporary folder for this process, in memory if the system offers that. Removed at exit.
#pragma once

#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <string_view>

namespace tarvelo::fuzz {

class Scratch {
 public:
  Scratch() {
    std::error_code error;
    const std::filesystem::path memory = "/dev/shm";
    const bool usable = std::filesystem::is_directory(memory, error);
    path_ = (usable ? memory : std::filesystem::temp_directory_path()) /
            ("tarvelo-fuzz-" + std::to_string(std::random_device{}()));
    std::filesystem::create_directories(path_);
  }
  ~Scratch() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  Scratch(const Scratch&) = delete;
  Scratch& operator=(const Scratch&) = delete;

  [[nodiscard]] const std::filesystem::path& Path() const { return path_; }

 private:
  std::filesystem::path path_;
};

inline void WriteAll(const std::filesystem::path& file, std::string_view text) {
  std::ofstream(file, std::ios::binary).write(text.data(), static_cast<std::streamsize>(text.size()));
}

inline std::string ReadAll(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

}  // namespace tarvelo::fuzz
