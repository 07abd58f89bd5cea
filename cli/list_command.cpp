#include <ostream>

#include "cli/commands.h"
#include "cli/files.h"
#include "cli/output.h"
#include "cli/subcommands.h"
#include "document/explorers.h"

namespace tarvelo::cli {
namespace {

void PrintJson(const TableRows& table, Context& context) {
  for (std::size_t i = 0; i < table.count; ++i) {
    Table::Row row = table.row(i);
    Json object;
    for (std::size_t k = 0; k < row.cells.size(); ++k) object[table.captions[k]] = std::move(row.cells[k]);
    PrintPiece(JsonLine(object), context);
  }
}

}  // namespace

void List(const ListArguments& arguments, Context& context) {
  const Dump dump = OpenDump(arguments.file, context.progress);
  const Findings found = Search(*arguments.kind, dump, arguments.file, context.progress);
  const Listing list = ListOf(*arguments.kind, dump, found, arguments.deleted, Messages(), CellRoom::File);
  if (arguments.json)
    PrintJson(list.rows, context);
  else
    PrintTable(list.rows, context);
  if (arguments.kind->isOfC166 && !dump.image.PageMode())
    context.err << PrintableLine(arguments.file) << ": an image above 16 MiB holds no C166 code\n";
  if (list.rows.count == 0) context.status = nothingFound;
}

}  // namespace tarvelo::cli
