// The files that a command line names. All names are UTF-8.
#pragma once

#include <initializer_list>
#include <string>

#include "core/dump.h"
#include "core/explorer.h"
#include "core/file.h"
#include "core/progress.h"

namespace tarvelo::cli {

// Reads an image; opens a dump: an image that is identified. Both throw FileError, also for an empty file.
[[nodiscard]] Fullflash ReadImage(const std::string& file, Progress& progress);
[[nodiscard]] Dump OpenDump(const std::string& file, Progress& progress);

// Opens an image that is read piece by piece. Throws FileError, also for an empty file.
[[nodiscard]] FileReader OpenInPieces(const std::string& file);

// What an explorer finds in the dump of a file. Throws ScanFault where that is more than there can be.
[[nodiscard]] Findings Search(const Explorer& explorer, const Dump& dump, const std::string& file,
                              Progress& progress);

// Refuses "-", which elsewhere means standard input: a dump is read at random. Throws WrongArguments.
void RefuseStandardInput(const std::string& file);

// Refuses a file to write that is "-", or one of those that are read. Throws WrongArguments.
void CheckOutput(const std::string& option, const std::string& file, std::initializer_list<std::string> read);

}  // namespace tarvelo::cli
