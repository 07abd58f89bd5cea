#include "shell/services/kept_file.h"

#include "core/file.h"
#include "core/fullflash.h"

namespace tarvelo {

std::filesystem::path BackupOf(std::filesystem::path file) { return file += ".bak"; }

bool KeepOld(const std::filesystem::path& file, Progress& progress) {
  if (!FileExist(file)) return false;
  const FileBytes old = ReadFile(file, Fullflash::sizeLimit, progress);
  ReplaceFile(BackupOf(file), {old.data.get(), old.size});
  return true;
}

}  // namespace tarvelo
