#include <algorithm>
#include <charconv>
#include <limits>
#include <ostream>

#include "cli/context.h"
#include "core/calculator.h"
#include "text/unicode.h"

namespace tarvelo::cli {
namespace {

FileError EmptyDump(const std::filesystem::path& path) {
  return FileError(FileError::Kind::CantRead, path, "the file is empty");
}

}  // namespace

std::string Printable(const std::string& file) { return ToUtf8(ToUtf16(file)); }

std::string InOneLine(const std::string& text) {
  std::string line = Printable(text);
  std::ranges::replace_if(
      line, [](unsigned char c) { return c < 0x20; }, ' ');
  return line;
}

void Diagnose(Context& context, const std::exception& error) {
  context.err << "tarvelo-cli: " << InOneLine(error.what()) << '\n';
}

void RefuseStandardInput(const std::string& file) {
  if (file == "-") throw WrongArguments("-: a dump is read at random, it can't come from a pipe");
}

void PrintPiece(std::string_view text, Context& context) {
  if (!(context.out << text)) throw std::runtime_error("the output can't be written");
}

void PrintTable(const TableRows& table, Context& context) {
  WriteTabSeparated(table, "\n", [&](std::string_view piece) { PrintPiece(piece, context); });
}

Fullflash OpenDump(const std::string& file, Progress& progress) {
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

Fullflash OpenDump(const std::string& file, Context& context) { return OpenDump(file, context.progress); }

FileReader OpenDumpFile(const std::string& file) {
  RefuseStandardInput(file);
  const std::filesystem::path path = PathOf(file);
  FileReader reader(path, Fullflash::sizeLimit);
  if (reader.Size() < 2) throw EmptyDump(path);
  return reader;
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

std::uint32_t ParseHex(const std::string& option, std::string text) {
  if (text.starts_with("0x") || text.starts_with("0X")) text.erase(0, 2);
  try {
    return HexVal(text);
  } catch (const std::exception& error) {
    throw WrongArguments(option + ": " + error.what());
  }
}

int ParseDecimal(const std::string& option, const std::string& text) {
  int value = -1;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  const bool isNumber = !text.empty() && text[0] != '-' && end == text.data() + text.size();
  if (isNumber && error == std::errc::result_out_of_range) return std::numeric_limits<int>::max();
  if (!isNumber || error != std::errc{})
    throw WrongArguments(option + ": " + text + " is not a number from 0 up");
  return value;
}

}  // namespace tarvelo::cli
