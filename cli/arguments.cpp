#include "cli/context.h"

#include "core/calculator.h"

namespace tarvelo::cli {

Fullflash OpenDump(const std::string& file, Context& context) {
  if (file == "-") throw WrongArguments("-: a dump is read at random, it can't come from a pipe");
  const std::filesystem::path path = PathOf(file);
  Fullflash image = Fullflash::Load(path, context.progress);
  if (!image.IsOpen()) throw FileError(FileError::Kind::CantRead, path, "the file is empty");
  return image;
}

std::uint32_t ParseHex(const std::string& option, std::string text) {
  if (text.starts_with("0x") || text.starts_with("0X")) text.erase(0, 2);
  try {
    return HexVal(text);
  } catch (const std::exception& error) {
    throw WrongArguments(option + ": " + error.what());
  }
}

}  // namespace tarvelo::cli
