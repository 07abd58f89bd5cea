// The open fullflash, what it is, and its names.
#pragma once

#include <filesystem>
#include <string>

#include "core/identification.h"
#include "core/image_edits.h"

namespace tarvelo {

struct Document {
  Fullflash image;
  ImageEdits edits;  // of the image, since it was opened; Main writes through them
  Identification info;

  // The file as it was chosen: the file system is always asked with this. Kept after the document is
  // closed, as the file dialog keeps it.
  std::filesystem::path path;
  // The name for showing and comparing: upper-cased when a dump is opened, else the last file chosen
  // or written.
  std::string FileName;
  std::filesystem::path FileStem;  // the path without its extension: exported files are named from it
  std::filesystem::path FileDir;   // the folder of the dump that was opened

  [[nodiscard]] bool IsOpen() const { return image.IsOpen(); }

  // Sets `path`, `FileName` and `FileStem`.
  void SetPath(const std::filesystem::path& chosen);

  // A file beside the dump: FileStem with this behind it ("_E.txt", ".info").
  [[nodiscard]] std::filesystem::path Beside(std::string_view ending) const;

  // Forgets the image, its edits, and what is known of it.
  void Close();
};

}  // namespace tarvelo
