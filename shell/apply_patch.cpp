#include "shell/apply_patch.h"

namespace tarvelo {

void ApplyPatch_Click(Main&) {}

}  // namespace tarvelo
