// Finds the files of a fullflash.
#pragma once

#include "core/fullflash.h"
#include "core/progress.h"
#include "core/sieve_marks.h"
#include "files/file_list.h"

namespace tarvelo {

// All volumes (volume_search.h) with their live entries (live_entries.h) and their deleted ones
// (deleted_entries.h). Never throws because of the image's content. Passes over the image once, and reads
// what the volumes hold.
[[nodiscard]] FileList FindFiles(const Fullflash& image, Progress& progress, const SieveMarks& marks = {});

}  // namespace tarvelo
