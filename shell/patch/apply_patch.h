// A patch file on its way into the open image: checked line by line, shown to the user where it does not
// fit, written as one step.
#pragma once

#include <filesystem>

namespace tarvelo {

class Main;

// Asks for a patch file and applies it. Where lines do not fit they are listed, and nothing is written
// unless the user says so.
void ApplyPatch_Click(Main& main);

// Applies a patch file that the user chose. What stands against it is told to him.
void ApplyPatchFile(Main& main, const std::filesystem::path& file);

// Whether a file is a patch, by its name.
[[nodiscard]] bool IsPatchFile(const std::filesystem::path& file);

}  // namespace tarvelo
