#include "shell/settings/program_files.h"

#include <wx/stdpaths.h>

#include "shell/base/strings.h"

namespace tarvelo {

std::filesystem::path ProgramFile() { return PathFrom(wxStandardPaths::Get().GetExecutablePath()); }

std::filesystem::path ProgramFolder() { return ProgramFile().parent_path(); }

std::filesystem::path DataFolder() {
  const std::filesystem::path program = ProgramFolder();
  const std::filesystem::path shared = program.parent_path() / "share" / "tarvelo";
  std::error_code ignored;
  return std::filesystem::is_directory(shared, ignored) ? shared : program;
}

}  // namespace tarvelo
