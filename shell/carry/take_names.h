// Names for places of the open dump that the user need not type: from a dump of another firmware version, or
// by the patterns of a list.
#pragma once

namespace tarvelo {

struct Workbench;

// Both ask for a file, show what was found, and name the places that the user wants. A place that has another
// name keeps it unless it is selected. They throw FileError.
void TakeNamesFrom(Workbench& bench);
void FindNames(Workbench& bench);

}  // namespace tarvelo
