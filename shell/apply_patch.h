// A patch file on its way into the open image: checked line by line, shown to the user where it does not
// fit, written as one step.
#pragma once

namespace tarvelo {

class Main;

// Asks for a patch file and applies it. Where lines do not fit they are listed, and nothing is written
// unless the user says so.
void ApplyPatch_Click(Main& main);

}  // namespace tarvelo
