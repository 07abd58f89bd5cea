// Reads and writes whole files, with errors that say what is wrong.
#pragma once

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

#include "core/progress.h"
#include "core/text_sink.h"

namespace tarvelo {

// A file that could not be read or written. what() names the path and the cause.
class FileError : public std::runtime_error {
 public:
  enum class Kind {
    CantOpen,   // missing, a folder, locked, or not permitted
    TooLarge,   // longer than the limit
    CantRead,   // reading broke off
    CantWrite,  // writing broke off (a full disk)
  };
  enum class Purpose { Read, Write };

  FileError(Kind kind, const std::filesystem::path& path, std::string_view cause,
            Purpose purpose = Purpose::Read);
  // The file is longer than `limit` bytes.
  FileError(const std::filesystem::path& path, std::uint64_t limit);

  [[nodiscard]] Kind Reason() const { return kind_; }
  // Whether the file was to be read or written.
  [[nodiscard]] Purpose OpenedTo() const { return purpose_; }
  [[nodiscard]] const std::filesystem::path& Path() const { return path_; }
  // In MiB, if the file is too large.
  [[nodiscard]] std::uint64_t Limit() const { return limit_; }

 private:
  Kind kind_;
  Purpose purpose_;
  std::filesystem::path path_;
  std::uint64_t limit_ = 0;
};

// The bytes of a whole file. A moved-from object is empty.
struct FileBytes {
  FileBytes() = default;
  explicit FileBytes(std::size_t count)
      : data(std::make_unique_for_overwrite<std::uint8_t[]>(count)), size(count) {}
  FileBytes(FileBytes&& other) noexcept : data(std::move(other.data)), size(std::exchange(other.size, 0)) {}
  FileBytes& operator=(FileBytes&& other) noexcept {
    data = std::move(other.data);
    size = std::exchange(other.size, 0);
    return *this;
  }

  std::unique_ptr<std::uint8_t[]> data;
  std::size_t size = 0;
};

// Reads a file from its beginning, piece by piece.
class FileReader {
 public:
  // Opens a file of at most `limit` bytes. Throws FileError.
  FileReader(const std::filesystem::path& path, std::uint64_t limit);

  // The size of the file in bytes when it was opened.
  [[nodiscard]] std::size_t Size() const { return size_; }

  // Fills `bytes` with the next bytes of the file. Throws FileError if the file has fewer.
  void Read(std::span<std::uint8_t> bytes);

 private:
  std::filesystem::path path_;
  std::ifstream file_;
  std::size_t size_ = 0;
};

// Reads a file of at most `limit` bytes. Throws FileError and std::bad_alloc.
[[nodiscard]] FileBytes ReadFile(const std::filesystem::path& path, std::uint64_t limit, Progress& progress);

// Creates a file with these bytes, or replaces the contents of an existing one. If writing breaks off, the
// file is removed: no partial file stays behind. Throws FileError.
void WriteFile(const std::filesystem::path& path, std::span<const std::uint8_t> data, Progress& progress);
void WriteFile(const std::filesystem::path& path, std::string_view text);

// Writes a file completely or not at all: the old file stays until the new contents are written, and its
// permissions pass to the new one. The new contents first go to a file beside it, "tarvelo-" with a number
// and ".tmp", which then replaces the old file. A link to a file becomes a file. Throws FileError.
void ReplaceFile(const std::filesystem::path& path, std::span<const std::uint8_t> data);
void ReplaceFile(const std::filesystem::path& path, std::string_view text);
// For contents too long to hold: `content` passes them to the sink. If it throws, the old file stays too.
void ReplaceFile(const std::filesystem::path& path,
                 const std::function<void(const TextSink& write)>& content);

// Creates a folder with its parents. An existing folder is not an error. Throws FileError.
void MakeFolder(const std::filesystem::path& path);

// Removes a file. A missing file is not an error. Throws FileError if the file stays.
void RemoveFile(const std::filesystem::path& path);

// Whether the path names a file, or a folder. A path that cannot be examined names neither.
[[nodiscard]] bool FileExist(const std::filesystem::path& path);
[[nodiscard]] bool DirExist(const std::filesystem::path& path);

// Converts a path to UTF-8 text, and back.
[[nodiscard]] std::string PathText(const std::filesystem::path& path);
[[nodiscard]] std::filesystem::path PathOf(std::string_view text);

}  // namespace tarvelo
