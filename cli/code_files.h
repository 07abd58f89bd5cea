// The dumps and places that the commands for C166 code take.
#pragma once

#include <optional>
#include <string>

#include "cli/context.h"
#include "core/dump.h"

namespace tarvelo::cli {

// Opens a dump, like OpenDump. If it is larger than 16 MiB, reports that it holds no C166 code, sets the
// status to nothingFound and returns nothing.
[[nodiscard]] std::optional<Dump> OpenCode(const std::string& file, Context& context);

// Parses an OFFSET. Throws WrongArguments.
[[nodiscard]] Offset ParseOffset(const std::string& text);

// Throws ScanFault if the offset is outside the image.
void CheckPlace(Offset offset, const Dump& dump, const std::string& file);

}  // namespace tarvelo::cli
