#include "cli/files.h"

#include "cli/context.h"

namespace tarvelo::cli {
namespace {

FileError EmptyDump(const std::filesystem::path& path) {
  return FileError(FileError::Kind::CantRead, path, "the file is empty");
}

}  // namespace

Fullflash ReadImage(const std::string& file, Progress& progress) {
  RefuseStandardInput(file);
  const std::filesystem::path path = PathOf(file);
  try {
    Fullflash image = Fullflash::Load(path, progress);
    if (image.IsOpen()) return image;
  } catch (const std::bad_alloc&) {
    throw FileError(FileError::Kind::CantRead, path, "there is not enough memory");
  }
  throw EmptyDump(path);
}

Dump OpenDump(const std::string& file, Progress& progress) {
  Dump dump{ReadImage(file, progress), {}, {}};
  dump.info = Identify(dump.image);
  dump.names = ReadNames(PathOf(file));
  return dump;
}

std::string ReadText(const std::string& file, Progress& progress) {
  const FileBytes bytes = ReadFile(PathOf(file), Fullflash::sizeLimit, progress);
  return {reinterpret_cast<const char*>(bytes.data.get()), bytes.size};
}

FileReader OpenInPieces(const std::string& file) {
  RefuseStandardInput(file);
  const std::filesystem::path path = PathOf(file);
  FileReader reader(path, Fullflash::sizeLimit);
  if (reader.Size() < 2) throw EmptyDump(path);
  return reader;
}

Findings Search(const Explorer& explorer, const Dump& dump, const std::string& file, Progress& progress) try {
  return explorer.search(dump, progress);
} catch (const std::length_error& fault) {
  throw ScanFault(file, fault.what());
}

void RefuseStandardInput(const std::string& file) {
  if (file == "-") throw WrongArguments("-: a dump is read at random, it can't come from a pipe");
}

void CheckOutput(const std::string& option, const std::string& file,
                 std::initializer_list<std::string> read) {
  if (file.empty() || file == "-") throw WrongArguments(option + ": a file is needed");
  for (const std::string& other : read) {
    std::error_code notThere;
    if (std::filesystem::equivalent(PathOf(file), PathOf(other), notThere))
      throw WrongArguments(std::string(option).append(": ").append(file).append(" is a file that is read"));
  }
}

}  // namespace tarvelo::cli
