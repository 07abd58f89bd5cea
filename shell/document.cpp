#include "shell/document.h"

namespace tarvelo {

void Document::SetPath(const std::filesystem::path& chosen) {
  path = chosen;
  FileName = PathText(chosen);
  FileStem = std::filesystem::path(chosen).replace_extension();
}

std::filesystem::path Document::Beside(std::string_view ending) const {
  std::filesystem::path file = FileStem;
  return file += PathOf(ending);
}

void Document::Close() {
  image = Fullflash();
  edits.Clear();
  info = Identification();
}

}  // namespace tarvelo
