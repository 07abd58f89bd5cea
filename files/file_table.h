// The list of files for the user.
#pragma once

#include <string>

#include "core/fullflash.h"
#include "core/table.h"
#include "files/file_list.h"
#include "resources/messages.h"

namespace tarvelo {

// The captions of the eight columns N, Name, Size, Date, A, Pieces, Offset, -.
[[nodiscard]] std::vector<std::string> FileCaptions(const Messages& messages);

// The list: one row per entry, in the same order. N is the entry's number, Name its path, Size the number of
// bytes that can be read (empty for folders), Offset that of the first piece, empty without one, with at
// least six digits. The last column has "-" for deleted entries and "!" for damaged ones. Numbers are padded
// to one width for the screen, where columns are sorted as text, and plain in files.
//
// Malformed folders may be nested as deep as there are records. So the paths together are limited to
// `roomForPaths` characters plus four for each byte of the image; a longer path becomes "..." and the
// beginning of the name. The list and the image must outlive the rows.
[[nodiscard]] TableRows FileRows(const FileList& list, const Fullflash& image, const Messages& messages,
                                 std::size_t roomForPaths, bool isPadded);

// The lines for the information text: the numbers of files, folders and deleted entries, each line ending in
// a line feed. Empty without entries.
[[nodiscard]] std::string FileInformation(const FileList& list, const Messages& messages);

// "241 / 126", the numbers of live and of deleted files, for the status bar. Empty without entries.
[[nodiscard]] std::string FileStatus(const FileList& list);

}  // namespace tarvelo
