// Applies a patch file to the open image: checks it line by line, shows the user the lines that do not fit,
// and writes it as one step.
#pragma once

#include <filesystem>

namespace tarvelo {

struct Workbench;

// Asks for a patch file and applies it. If lines do not fit, lists them and writes nothing unless the user
// agrees.
void ApplyPatch_Click(Workbench& bench);

// Applies a patch file that the user chose. If it cannot be applied, the program says why.
void ApplyPatchFile(Workbench& bench, const std::filesystem::path& file);

// Whether a file's name is that of a patch.
[[nodiscard]] bool IsPatchFile(const std::filesystem::path& file);

}  // namespace tarvelo
