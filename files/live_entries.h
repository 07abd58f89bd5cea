// Builds the live entries of a volume.
#pragma once

#include "core/fullflash.h"
#include "files/volume_records.h"

namespace tarvelo {

// Adds the live entries of the last volume of the list, whose records these are, and their pieces.
//
// The walk begins at the root and follows the folders' items in stored order. An entry is listed once, where
// the walk meets it first. An orphan, which no folder lists, follows the items of its folder, or of the root
// if that folder does not exist. So does a piece that belongs to no file. Without a root, such entries have
// no parent. Of two headers with the same entry number, the one in record n + 6000 counts, or else the first;
// the other one is an orphan.
//
// The work is bounded by the volume's size: folders and files that together state more bytes or pieces than
// fit into the volume are cut off; a file, one of more than twice its bytes.
void AddLiveEntries(const Fullflash& image, const VolumeRecords& records, FileList& list);

}  // namespace tarvelo
