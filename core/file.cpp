#include "core/file.h"

#include <algorithm>
#include <cerrno>
#include <cstring>

namespace tarvelo {
namespace {

namespace fs = std::filesystem;

// One transfer moves at most this much, so that the bar moves while a huge file is read; the dumps
// of all known phones come in one.
constexpr std::size_t blockSize = std::size_t{64} << 20;

// The system's words for why the last call failed.
std::string Cause(std::string_view otherwise) {
  return errno != 0 ? std::strerror(errno) : std::string(otherwise);
}

constexpr auto forWriting = FileError::Purpose::Write;

}  // namespace

FileError::FileError(Kind kind, const fs::path& path, std::string_view cause, Purpose purpose)
    : std::runtime_error(PathText(path).append(": ").append(cause)),
      kind_(kind),
      purpose_(purpose),
      path_(path) {}

FileReader::FileReader(const fs::path& path, std::uint64_t limit) : path_(path) {
  std::error_code error;
  const fs::file_status status = fs::status(path, error);
  if (!fs::exists(status))
    throw FileError(FileError::Kind::CantOpen, path, error ? error.message() : std::string("no such file"));
  // Reading a folder, a pipe or a device would fail late or never end.
  if (!fs::is_regular_file(status))
    throw FileError(FileError::Kind::CantOpen, path,
                    fs::is_directory(status) ? "it is a folder" : "it is not a file");
  errno = 0;
  file_.open(path, std::ios::binary);
  if (!file_) throw FileError(FileError::Kind::CantOpen, path, Cause("it can't be opened"));
  const std::uint64_t size = fs::file_size(path, error);
  if (error) throw FileError(FileError::Kind::CantOpen, path, error.message());
  if (size > limit) throw FileError(FileError::Kind::TooLarge, path, "it is larger than 2 GiB");
  size_ = static_cast<std::size_t>(size);
}

void FileReader::Read(std::span<std::uint8_t> bytes) {
  errno = 0;
  file_.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
  if (!file_) throw FileError(FileError::Kind::CantRead, path_, Cause("it ended while it was read"));
}

FileBytes ReadFile(const fs::path& path, std::uint64_t limit, Progress& progress) {
  FileReader file(path, limit);
  FileBytes bytes(file.Size());
  ProgressRun run(progress, 0, static_cast<std::int64_t>(bytes.size));
  for (std::size_t done = 0; done < bytes.size;) {
    const std::size_t part = std::min(blockSize, bytes.size - done);
    file.Read({bytes.data.get() + done, part});
    done += part;
    run.At(static_cast<std::int64_t>(done));
  }
  return bytes;
}

void WriteFile(const fs::path& path, std::span<const std::uint8_t> data, Progress& progress) {
  std::error_code status;
  const fs::file_type type = fs::status(path, status).type();
  if (type != fs::file_type::regular && type != fs::file_type::not_found)
    throw FileError(FileError::Kind::CantOpen, path, "it is not a file", forWriting);
  errno = 0;
  std::ofstream file(path, std::ios::binary | std::ios::trunc);
  if (!file) throw FileError(FileError::Kind::CantOpen, path, Cause("it can't be opened"), forWriting);
  ProgressRun run(progress, 0, static_cast<std::int64_t>(data.size()));
  for (std::size_t done = 0; done < data.size() && file;) {
    const std::size_t part = std::min(blockSize, data.size() - done);
    file.write(reinterpret_cast<const char*>(data.data()) + done, static_cast<std::streamsize>(part));
    done += part;
    run.At(static_cast<std::int64_t>(done));
  }
  file.close();
  if (!file) {
    const std::string cause = Cause("it can't be written");
    std::error_code ignored;
    fs::remove(path, ignored);
    throw FileError(FileError::Kind::CantWrite, path, cause, forWriting);
  }
}

void WriteFile(const fs::path& path, std::string_view text) {
  NoProgress progress;
  WriteFile(path, {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()}, progress);
}

void ReplaceFile(const fs::path& path, std::string_view text) {
  std::error_code error;
  errno = 0;
  // A file that may not be written to is not to be replaced either.
  if (fs::exists(path, error) && !std::fstream(path))
    throw FileError(FileError::Kind::CantOpen, path, Cause("it can't be opened"), forWriting);
  fs::path beside = path;
  beside += ".tmp";
  try {
    WriteFile(beside, text);
  } catch (const FileError& failure) {
    throw FileError(failure.Reason(), path, failure.what(), forWriting);
  }
  fs::rename(beside, path, error);
  if (!error) return;
  const std::string cause = error.message();
  fs::remove(beside, error);
  throw FileError(FileError::Kind::CantWrite, path, cause, forWriting);
}

void MakeFolder(const fs::path& path) {
  std::error_code error;
  fs::create_directories(path, error);
  if (!DirExist(path))
    throw FileError(FileError::Kind::CantWrite, path, error ? error.message() : "it is no folder",
                    forWriting);
}

void RemoveFile(const fs::path& path) {
  std::error_code error;
  fs::remove(path, error);
  if (error) throw FileError(FileError::Kind::CantOpen, path, error.message(), forWriting);
}

bool FileExist(const fs::path& path) {
  std::error_code error;
  return fs::is_regular_file(path, error);
}

bool DirExist(const fs::path& path) {
  std::error_code error;
  return fs::is_directory(path, error);
}

std::string PathText(const fs::path& path) {
  const std::u8string text = path.u8string();
  return {text.begin(), text.end()};
}

fs::path PathOf(std::string_view text) { return std::u8string(text.begin(), text.end()); }

}  // namespace tarvelo
