// Applies a patch to the open image: checks it line by line, shows the user the lines that do not fit,
// and writes it as one step.
#pragma once

#include <filesystem>

#include "patch/misfit_table.h"
#include "patch/patch_apply.h"
#include "shell/services/review.h"

namespace tarvelo {

struct Workbench;

// The lines that do not fit, for the user to decide whether to write the others. The table must outlive it.
[[nodiscard]] Review ReviewOf(const MisfitTable& misfits);

// Asks for a patch file and applies it. If lines do not fit, lists them and writes nothing unless the user
// agrees.
void ApplyPatch_Click(Workbench& bench);

// The same for a patch that was read already. TakeOutPatch puts its old bytes back.
void ApplyPatch(Workbench& bench, const ReadPatch& patch);
void TakeOutPatch(Workbench& bench, ReadPatch patch);

// Whether a file's name is that of a patch.
[[nodiscard]] bool IsPatchFile(const std::filesystem::path& file);

}  // namespace tarvelo
