// Writes files of the phone to the disk, in their folders.
#pragma once

#include <filesystem>
#include <memory>
#include <optional>

#include "core/explorer.h"
#include "core/fullflash.h"
#include "files/file_list.h"

namespace tarvelo {

class FileExport {
 public:
  // The image and the list must outlive it.
  FileExport(const Fullflash& image, const FileList& list, const std::filesystem::path& folder);
  ~FileExport();

  // Writes a file below the folder, in folders named like those of the volume (disk_names.h). Where these are
  // deeper than 16, or their path is longer than the system takes, files stand in the folder above, and long
  // names are shortened. A file has the same name whichever files are written. Replaces a file of an earlier
  // export. A folder itself is not written. Also refuses a file none of whose bytes can be read, and all that
  // follow when the files together have 16 times as many bytes as the image, which only malformed volumes do.
  // Throws FileError.
  [[nodiscard]] Exported Write(std::size_t entry);

 private:
  class Places;

  const Fullflash& image_;
  const FileList& list_;
  std::unique_ptr<Places> places_;
  Offset room_;  // bytes left to write
};

}  // namespace tarvelo
