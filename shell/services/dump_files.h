// Files of dumps, and the list files beside them.
#pragma once

#include <filesystem>
#include <optional>

#include "core/table.h"
#include "shell/services/workbench.h"

namespace tarvelo {

// The patterns of dumps for file dialogs.
[[nodiscard]] wxString DumpFilter(const Messages& texts);

// Asks for a dump. Nothing when the user cancels.
[[nodiscard]] std::optional<std::filesystem::path> AskForDump(Workbench& bench, Text title,
                                                              const std::filesystem::path& current);
// Reads a dump. Where it cannot be read or is empty, the user is told and there is nothing.
[[nodiscard]] std::optional<Fullflash> ReadDump(Workbench& bench, const std::filesystem::path& path);

// Writes a list as tab-separated text to the dump's path without extension, "_", the letter and ".txt",
// and tells the user. Throws FileError.
void SaveList(Workbench& bench, const TableRows& rows, char letter);

// A line break, as files have it; texts on the screen have line feeds.
inline constexpr char CrLf[] = "\r\n";

}  // namespace tarvelo
