// Shows a change of bytes as instructions.
#pragma once

#include "core/image_edits.h"

namespace tarvelo {

struct Workbench;

// Announces the instructions before and after a change. If it is outside the image, or the image holds no
// C166 code, tells the user.
void ShowChangeAsCode(Workbench& bench, const Change& change);

}  // namespace tarvelo
