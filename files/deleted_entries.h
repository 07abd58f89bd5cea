// Finds deleted entries and older generations of existing ones.
#pragma once

#include <vector>

#include "core/fullflash.h"
#include "files/volume_records.h"

namespace tarvelo {

// The deleted entries of the last volume of the list, whose records these are; adds their pieces to the list.
// A parent is an index in the list's entries, or, from deletedParent up, in the result.
//
// Deleted are the records with that state and, of several live records with one number, all but the first. A
// header counts if the number inside it is the record's. With another number it may be what overwrote the
// header, so it must have a name and the usual data number, and must be in the unit of its slot, which is
// erased as a whole.
//
// A header goes with the data record of its own generation, as far as can be told: if there are as many
// deleted headers of a number as deleted data records, they are paired in order. Otherwise a header and a
// data record that are next to each other in the directory belong together, those of one unit before others.
// A header without such a record takes the live one, because a new name is a new header with the old data.
// Further pieces are chosen in the same way.
//
// A deleted data record that no deleted header takes is an older generation of the file whose number it has.
//
// Folders stand before files. An entry whose folder is not known stands under the root. A deleted root has
// the volume's name and no parent.
inline constexpr std::uint32_t deletedParent = 0x80000000;
[[nodiscard]] std::vector<FileEntry> DeletedEntries(const Fullflash& image, const VolumeRecords& records,
                                                    std::size_t firstLive, FileList& list);

}  // namespace tarvelo
