// Carries the patch document of the open dump to a dump of another firmware version.
#pragma once

#include <string>

namespace tarvelo {

struct Workbench;

// Asks for the other dump, shows what becomes of each line, writes the carried patch to a file if the user
// wants it, and offers to open the other dump with it in a new window. `document` is the text of the patch.
// Throws FileError.
void CarryPatch(Workbench& bench, const std::string& document);

}  // namespace tarvelo
