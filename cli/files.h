// The files that a command line names. All names are UTF-8.
#pragma once

#include <initializer_list>
#include <string>

#include "core/dump.h"
#include "core/explorer.h"
#include "core/file.h"
#include "core/progress.h"

namespace tarvelo::cli {

// ReadImage reads an image. OpenDump also identifies it. Both throw FileError, also for an empty file.
[[nodiscard]] Fullflash ReadImage(const std::string& file, Progress& progress);
[[nodiscard]] Dump OpenDump(const std::string& file, Progress& progress);

// A whole text file. Throws FileError.
[[nodiscard]] std::string ReadText(const std::string& file, Progress& progress);

// Opens an image to read it piece by piece. Throws FileError, also for an empty file.
[[nodiscard]] FileReader OpenInPieces(const std::string& file);

// An explorer's findings in the dump of a file. Throws ScanFault if there are more records than there may be.
[[nodiscard]] Findings Search(const Explorer& explorer, const Dump& dump, const std::string& file,
                              Progress& progress);

// Rejects "-", which elsewhere means standard input: a dump needs random access. Throws WrongArguments.
void RefuseStandardInput(const std::string& file);

// Rejects an output file that is empty, "-" or one of the files read. Throws WrongArguments.
void CheckOutput(const std::string& option, const std::string& file, std::initializer_list<std::string> read);

}  // namespace tarvelo::cli
