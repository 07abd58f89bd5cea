// Applies a patch to the open image: checks it line by line, shows the user the lines that do not fit,
// and writes it as one step.
#pragma once

#include <filesystem>

#include "patch/patch_apply.h"

namespace tarvelo {

struct Workbench;

// Asks for a patch file and applies it. If lines do not fit, lists them and writes nothing unless the user
// agrees.
void ApplyPatch_Click(Workbench& bench);

// The same for a patch that was read already. TakeOutPatch puts its old bytes back.
void ApplyPatch(Workbench& bench, const ReadPatch& patch);
void TakeOutPatch(Workbench& bench, ReadPatch patch);

// Whether a file's name is that of a patch.
[[nodiscard]] bool IsPatchFile(const std::filesystem::path& file);

}  // namespace tarvelo
