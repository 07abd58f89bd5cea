// The output of commands.
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
// Any text as UTF-8, with a blank for each control character.
[[nodiscard]] std::string PrintableLine(const std::string& text);
// An object as one line, including its line end.
[[nodiscard]] std::string JsonLine(const Json& object);

// Prints an error as one line on `err`, whatever the names in it contain.
void Diagnose(Context& context, const std::exception& error);

// Prints a piece of a possibly very long text. Throws if it cannot be written, so that nobody computes the
// rest.
void PrintPiece(std::string_view text, Context& context);
// Prints a table as tab-separated text.
void PrintTable(const TableRows& table, Context& context);

}  // namespace tarvelo::cli
