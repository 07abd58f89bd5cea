// Dump files, and the list files beside them.
#pragma once

#include <filesystem>
#include <optional>

#include "core/table.h"
#include "shell/services/workbench.h"

namespace tarvelo {

// The file dialog filter for dumps.
[[nodiscard]] wxString DumpFilter(const Messages& texts);

// Asks for a dump. Nothing if the user cancels.
[[nodiscard]] std::optional<std::filesystem::path> AskForDump(Workbench& bench, Text title,
                                                              const std::filesystem::path& current);
// Reads a dump. If it cannot be read or is empty, tells the user and returns nothing.
[[nodiscard]] std::optional<Fullflash> ReadDump(Workbench& bench, const std::filesystem::path& path);

// Asks for a dump of another firmware version, and reads it with its names; `path` is where it is. If it or
// the open dump has no C166 code, says so; if it is of another phone or size, asks whether to go on. Nothing
// if it cannot be read, or the user does not want it.
[[nodiscard]] std::optional<Dump> AskForOtherVersion(Workbench& bench, Text title,
                                                     std::filesystem::path& path);

// Writes the shown rows of a list as tab-separated text to the dump's path without extension, "_", the letter
// and ".txt", and tells the user, also if they are not all rows of the list. Without rows, writes nothing and
// says so. Throws FileError.
void SaveList(Workbench& bench, const TableRows& rows, std::size_t all, char letter);

// The line break in files; texts on the screen use a line feed.
inline constexpr char CrLf[] = "\r\n";

}  // namespace tarvelo
