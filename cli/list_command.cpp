#include <CLI/CLI.hpp>
#include <functional>
#include <nlohmann/json.hpp>

#include "cli/commands.h"
#include "cli/context.h"
#include "core/identification.h"
#include "eeprom/block_table.h"
#include "eeprom/descriptions.h"
#include "pictures/picture_search.h"
#include "pictures/picture_table.h"
#include "ringtones/ringtone_search.h"
#include "ringtones/ringtone_table.h"

namespace tarvelo::cli {
namespace {

using Json = nlohmann::ordered_json;

struct ListArguments {
  std::string file;
  bool json = false;
  bool deleted = false;  // of EEPROM blocks
};

using Print = std::function<void(const TableRows& table)>;

// Has the list of one kind of thing printed.
using Lister = void (*)(const Fullflash& image, const Identification& info, const ListArguments& arguments,
                        Context& context, const Print& print);

void ListEeprom(const Fullflash& image, const Identification& info, const ListArguments& arguments,
                Context& context, const Print& print) try {
  const BlockStore store = GetEE(image, info.Model, context.progress);
  const Descriptions descriptions = GetDescriptions();
  const Table table =
      ShowEE(store, arguments.deleted, [&](int number) { return Describe(descriptions, number); });
  print(RowsOf(table));
} catch (const std::length_error& fault) {
  throw ScanFault(arguments.file, fault.what());
}

void ListPictures(const Fullflash& image, const Identification&, const ListArguments&, Context& context,
                  const Print& print) {
  const PictureList list = GetP(image, context.progress);
  print(PictureRows(list));
}

void ListRingtones(const Fullflash& image, const Identification&, const ListArguments&, Context& context,
                   const Print& print) {
  const RingtoneList list = GetRingtones(image, context.progress);
  constexpr std::size_t roomForTexts = 0x10000000;  // nobody waits for more
  print(RingtoneRows(list, image, Messages(), roomForTexts));
}

void PrintJson(const TableRows& table, Context& context) {
  for (std::size_t i = 0; i < table.count; ++i) {
    Table::Row row = table.row(i);
    Json object;
    for (std::size_t k = 0; k < row.cells.size(); ++k) object[table.captions[k]] = std::move(row.cells[k]);
    PrintPiece(object.dump(-1, ' ', false, Json::error_handler_t::replace) + '\n', context);
  }
}

void PrintList(const ListArguments& arguments, Lister lister, Context& context) {
  Fullflash image = OpenDump(arguments.file, context);
  const Identification info = Identify(image);
  lister(image, info, arguments, context, [&](const TableRows& table) {
    if (arguments.json)
      PrintJson(table, context);
    else
      PrintTable(table, context);
    if (table.count == 0) context.status = nothingFound;
  });
}

std::shared_ptr<ListArguments> AddKind(CLI::App& list, Context& context, const char* kind,
                                       const char* description, Lister lister) {
  auto arguments = std::make_shared<ListArguments>();
  CLI::App* command = list.add_subcommand(kind, description);
  command->add_option("FILE", arguments->file, "Dump")->required();
  command->add_flag("--json", arguments->json, "One JSON object a row and line");
  command->callback([arguments, lister, &context] { PrintList(*arguments, lister, context); });
  return arguments;
}

}  // namespace

void AddList(CLI::App& app, Context& context) {
  CLI::App* list = app.add_subcommand("list", "Print a list of what a dump holds");
  list->require_subcommand(1);
  list->fallthrough();
  const auto eeprom = AddKind(*list, context, "eeprom", "The EEPROM blocks", ListEeprom);
  list->get_subcommand("eeprom")->add_flag("--deleted", eeprom->deleted, "Deleted blocks too");
  AddKind(*list, context, "pictures", "The pictures", ListPictures);
  AddKind(*list, context, "ringtones", "The ringtones", ListRingtones);
}

}  // namespace tarvelo::cli
