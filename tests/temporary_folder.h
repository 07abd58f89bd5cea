// A temporary folder for a test or a fuzz target, removed with the object.
#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>

namespace tarvelo {

class TemporaryFolder {
 public:
  TemporaryFolder() {
    // Test programs run in parallel.
    const std::string name = "tarvelo-test-" + std::to_string(std::random_device{}());
    path_ = std::filesystem::temp_directory_path() / name;
    std::filesystem::create_directories(path_);
  }
  ~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  [[nodiscard]] std::filesystem::path operator/(const std::filesystem::path& name) const {
    return path_ / name;
  }
  [[nodiscard]] const std::filesystem::path& Path() const { return path_; }

  template <typename Bytes>
  std::filesystem::path Write(const std::filesystem::path& name, const Bytes& bytes) const {
    std::ofstream(path_ / name, std::ios::binary)
        .write(reinterpret_cast<const char*>(std::data(bytes)),
               static_cast<std::streamsize>(std::size(bytes)));
    return path_ / name;
  }

 private:
  std::filesystem::path path_;
};

inline std::string ReadAll(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

}  // namespace tarvelo
