// A patch file on its way into the open image: checked line by line, shown to the user where it does not
// fit, written as one step.
#pragma once

#include <filesystem>

namespace tarvelo {

struct Workbench;

// Asks for a patch file and applies it. Where lines do not fit they are listed, and nothing is written
// unless the user says so.
void ApplyPatch_Click(Workbench& bench);

// Applies a patch file that the user chose. If it cannot be applied, the user is told why.
void ApplyPatchFile(Workbench& bench, const std::filesystem::path& file);

// Whether a file is a patch, by its name.
[[nodiscard]] bool IsPatchFile(const std::filesystem::path& file);

}  // namespace tarvelo
