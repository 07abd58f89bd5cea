#include "core/file.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <random>

namespace tarvelo {
namespace {

namespace fs = std::filesystem;

// The most that one transfer moves, so that the progress bar moves while a huge file is read. The dumps of
// all known phones need a single transfer.
constexpr std::size_t partSize = std::size_t{64} << 20;

// The system's message for the failure of the last call.
std::string Cause(std::string_view otherwise) {
  return errno != 0 ? std::strerror(errno) : std::string(otherwise);
}

constexpr auto forWriting = FileError::Purpose::Write;

// Whether there is a file to overwrite. Throws if the path names something else, such as a device, or cannot
// be examined.
bool CheckTarget(const fs::path& path) {
  std::error_code error;
  const fs::file_type type = fs::status(path, error).type();
  if (type == fs::file_type::not_found) return false;
  if (type == fs::file_type::none)
    throw FileError(FileError::Kind::CantOpen, path, error.message(), forWriting);
  if (type != fs::file_type::regular)
    throw FileError(FileError::Kind::CantOpen, path, "it is not a file", forWriting);
  return true;
}

// A path for a new file in the same folder. The name is short even if the other's is long, because a name may
// have only 255 bytes.
fs::path Beside(const fs::path& path) {
  std::random_device random;
  for (;;) {
    fs::path beside = path.parent_path() / ("tarvelo-" + std::to_string(random()) + ".tmp");
    std::error_code error;
    const fs::file_type type = fs::symlink_status(beside, error).type();
    if (type == fs::file_type::not_found || type == fs::file_type::none) return beside;
  }
}

// A file being written. The destructor removes it unless Finish succeeded, so no partial file stays behind.
class Output {
 public:
  // Errors name the path `named`.
  Output(const fs::path& path, const fs::path& named) : path_(path), named_(named) {
    errno = 0;
    file_.open(path, std::ios::binary | std::ios::trunc);
    if (!file_) throw FileError(FileError::Kind::CantOpen, named, Cause("it can't be opened"), forWriting);
  }
  ~Output() {
    if (finished_) return;
    file_.close();
    std::error_code ignored;
    fs::remove(path_, ignored);
  }
  Output(const Output&) = delete;
  Output& operator=(const Output&) = delete;

  void Write(std::string_view bytes) {
    errno = 0;
    Check(file_.write(bytes.data(), static_cast<std::streamsize>(bytes.size())).good());
  }

  void Finish() {
    errno = 0;
    file_.close();
    Check(file_.good());
    finished_ = true;
  }

 private:
  void Check(bool isWritten) const {
    if (!isWritten)
      throw FileError(FileError::Kind::CantWrite, named_, Cause("it can't be written"), forWriting);
  }

  const fs::path& path_;
  const fs::path& named_;
  std::ofstream file_;
  bool finished_ = false;
};

}  // namespace

FileError::FileError(Kind kind, const fs::path& path, std::string_view cause, Purpose purpose)
    : std::runtime_error(PathText(path).append(": ").append(cause)),
      kind_(kind),
      purpose_(purpose),
      path_(path) {}

FileError::FileError(const fs::path& path, std::uint64_t limit)
    : FileError(Kind::TooLarge, path, "it is larger than " + std::to_string(limit >> 20) + " MiB") {
  limit_ = limit >> 20;
}

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
  if (size > limit) throw FileError(path, limit);
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
    const std::size_t part = std::min(partSize, bytes.size - done);
    file.Read({bytes.data.get() + done, part});
    done += part;
    run.At(static_cast<std::int64_t>(done));
  }
  return bytes;
}

void WriteFile(const fs::path& path, std::span<const std::uint8_t> data, Progress& progress) {
  CheckTarget(path);
  Output file(path, path);
  ProgressRun run(progress, 0, static_cast<std::int64_t>(data.size()));
  for (std::size_t done = 0; done < data.size();) {
    const std::size_t part = std::min(partSize, data.size() - done);
    file.Write({reinterpret_cast<const char*>(data.data()) + done, part});
    done += part;
    run.At(static_cast<std::int64_t>(done));
  }
  file.Finish();
}

void WriteFile(const fs::path& path, std::string_view text) {
  NoProgress progress;
  WriteFile(path, {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()}, progress);
}

void ReplaceFile(const fs::path& path, const std::function<void(const TextSink& write)>& content) {
  const bool isThere = CheckTarget(path);
  errno = 0;
  // A file without write permission must not be replaced either.
  if (isThere && !std::fstream(path))
    throw FileError(FileError::Kind::CantOpen, path, Cause("it can't be opened"), forWriting);
  const fs::path beside = Beside(path);
  Output file(beside, path);
  content([&](std::string_view piece) { file.Write(piece); });
  file.Finish();
  std::error_code error;
  if (isThere) fs::permissions(beside, fs::status(path, error).permissions(), error);
  fs::rename(beside, path, error);
  if (!error) return;
  const std::string cause = error.message();
  fs::remove(beside, error);
  throw FileError(FileError::Kind::CantWrite, path, cause, forWriting);
}

void ReplaceFile(const fs::path& path, std::string_view text) {
  ReplaceFile(path, [&](const TextSink& write) { write(text); });
}

void ReplaceFile(const fs::path& path, std::span<const std::uint8_t> data) {
  ReplaceFile(path, std::string_view(reinterpret_cast<const char*>(data.data()), data.size()));
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
