// What commands print.
#pragma once

#include <exception>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>

#include "cli/context.h"
#include "core/table.h"

namespace tarvelo::cli {

using Json = nlohmann::ordered_json;

// A file's name as UTF-8 text, whatever its bytes are.
[[nodiscard]] std::string Printable(const std::string& file);
// Any text as UTF-8, with blanks for control characters.
[[nodiscard]] std::string PrintableLine(const std::string& text);
// An object as one line, with its end.
[[nodiscard]] std::string JsonLine(const Json& object);

// Prints one line on standard error, whatever the names in it hold.
void Diagnose(Context& context, const std::exception& error);

// Prints a piece of what may be very long. Throws where it cannot be written: nobody waits for the rest.
void PrintPiece(std::string_view text, Context& context);
// Prints a table as tab-separated text.
void PrintTable(const TableRows& table, Context& context);

}  // namespace tarvelo::cli
