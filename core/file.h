// Whole files in and out, with failures that say what is wrong.
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
    CantOpen,   // missing, a folder, locked, or no right to read or write it
    TooLarge,   // longer than an image can be
    CantRead,   // it broke off while it was read
    CantWrite,  // it broke off while it was written (a full disk)
  };
  enum class Purpose { Read, Write };

  FileError(Kind kind, const std::filesystem::path& path, std::string_view cause,
            Purpose purpose = Purpose::Read);

  [[nodiscard]] Kind Reason() const { return kind_; }
  // What the file was to be opened for.
  [[nodiscard]] Purpose OpenedTo() const { return purpose_; }
  [[nodiscard]] const std::filesystem::path& Path() const { return path_; }

 private:
  Kind kind_;
  Purpose purpose_;
  std::filesystem::path path_;
};

// The bytes of a whole file. Empty after it was moved from.
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

// A file that is read from its beginning on, piece by piece.
class FileReader {
 public:
  // Opens a file of at most `limit` bytes. Throws FileError.
  FileReader(const std::filesystem::path& path, std::uint64_t limit);

  // Bytes of the whole file when it was opened.
  [[nodiscard]] std::size_t Size() const { return size_; }

  // Reads the next bytes, as many as are asked for. Throws FileError where the file has fewer.
  void Read(std::span<std::uint8_t> bytes);

 private:
  std::filesystem::path path_;
  std::ifstream file_;
  std::size_t size_ = 0;
};

// Reads a file of at most `limit` bytes. Throws FileError, and std::bad_alloc.
[[nodiscard]] FileBytes ReadFile(const std::filesystem::path& path, std::uint64_t limit, Progress& progress);

// Writes a new file of exactly these bytes, or replaces the contents of one. Where writing breaks
// off, the file is removed: no half of it stays behind. Throws FileError.
void WriteFile(const std::filesystem::path& path, std::span<const std::uint8_t> data, Progress& progress);
void WriteFile(const std::filesystem::path& path, std::string_view text);

// Writes a file whole or not at all: what stood there before stays, with its rights, until the new
// contents are written. They are written beside, as "tarvelo-" with a number and ".tmp", and then take
// the file's place; a link to a file becomes a file. Throws FileError.
void ReplaceFile(const std::filesystem::path& path, std::span<const std::uint8_t> data);
void ReplaceFile(const std::filesystem::path& path, std::string_view text);
// For contents that are not held whole: `content` hands them to the sink. What it throws leaves the old
// file, too.
void ReplaceFile(const std::filesystem::path& path,
                 const std::function<void(const TextSink& write)>& content);

// Makes a folder; one that is there already will do. Throws FileError.
void MakeFolder(const std::filesystem::path& path);

// Removes a file. Throws FileError where it stays.
void RemoveFile(const std::filesystem::path& path);

// Whether the path names a file, resp. a folder. A path that cannot be looked at names neither.
[[nodiscard]] bool FileExist(const std::filesystem::path& path);
[[nodiscard]] bool DirExist(const std::filesystem::path& path);

// A path as UTF-8 text, and back.
[[nodiscard]] std::string PathText(const std::filesystem::path& path);
[[nodiscard]] std::filesystem::path PathOf(std::string_view text);

}  // namespace tarvelo
