#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>
#include <ostream>

#include "cli/commands.h"
#include "cli/context.h"
#include "core/identification.h"
#include "core/table.h"
#include "eeprom/block_table.h"
#include "eeprom/descriptions.h"
#include "media/picture_search.h"
#include "media/picture_table.h"
#include "media/ringtone_search.h"
#include "media/ringtone_table.h"

namespace tarvelo::cli {
namespace {

using Json = nlohmann::ordered_json;

struct ListArguments {
  std::string file;
  bool json = false;
  bool deleted = false;  // of EEPROM blocks
};

// Builds the list of one kind of thing.
using Lister = Table (*)(const Fullflash& image, const Identification& info, const ListArguments& arguments,
                         Context& context);

Table ListEeprom(const Fullflash& image, const Identification& info, const ListArguments& arguments,
                 Context& context) try {
  const BlockStore store = GetEE(image, info.Model, context.progress);
  const Descriptions descriptions = GetDescriptions();
  return ShowEE(store, arguments.deleted, [&](int number) { return Describe(descriptions, number); });
} catch (const std::length_error& fault) {
  throw ScanFault(arguments.file, fault.what());
}

Table ListPictures(const Fullflash& image, const Identification&, const ListArguments&, Context& context) {
  return PictureTable(GetP(image, context.progress));
}

Table ListRingtones(const Fullflash& image, const Identification&, const ListArguments&, Context& context) {
  return RingtoneTable(GetRingtones(image, context.progress), image);
}

void PrintJson(const Table& table, std::ostream& out) {
  for (const Table::Row& row : table.rows) {
    Json object;
    for (std::size_t i = 0; i < row.cells.size(); ++i) object[table.captions[i]] = row.cells[i];
    out << object.dump(-1, ' ', false, Json::error_handler_t::replace) << '\n';
  }
}

void PrintList(const ListArguments& arguments, Lister lister, Context& context) {
  Fullflash image = OpenDump(arguments.file, context);
  const Identification info = Identify(image);
  const Table table = lister(image, info, arguments, context);
  if (arguments.json)
    PrintJson(table, context.out);
  else
    context.out << TabSeparated(table, "\n");
  if (table.rows.empty()) context.status = nothingFound;
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
