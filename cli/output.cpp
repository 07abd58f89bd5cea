#include "cli/output.h"

#include <ostream>

#include "text/unicode.h"

namespace tarvelo::cli {

std::string Printable(const std::string& file) { return ToUtf8(ToUtf16(file)); }

std::string PrintableLine(const std::string& text) { return InOneLine(Printable(text)); }

std::string JsonLine(const Json& object) {
  return object.dump(-1, ' ', false, Json::error_handler_t::replace) + '\n';
}

void Diagnose(Context& context, const std::exception& error) {
  context.err << "tarvelo-cli: " << PrintableLine(error.what()) << '\n';
}

void PrintPiece(std::string_view text, Context& context) {
  if (!(context.out << text)) throw std::runtime_error("the output can't be written");
}

void PrintTable(const TableRows& table, Context& context) {
  WriteTabSeparated(table, "\n", [&](std::string_view piece) { PrintPiece(piece, context); });
}

}  // namespace tarvelo::cli
