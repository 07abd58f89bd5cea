#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>
#include <optional>
#include <ostream>

#include "cli/commands.h"
#include "cli/context.h"
#include "core/identification.h"
#include "core/notation.h"
#include "eeprom/block_files.h"
#include "pictures/picture_files.h"
#include "pictures/picture_search.h"
#include "ringtones/ringtone_files.h"
#include "ringtones/ringtone_search.h"

namespace tarvelo::cli {
namespace {

struct ExportArguments {
  std::string file;
  std::string folder;
  std::optional<std::string> number;
  std::string format;
  bool deleted = false;  // of EEPROM blocks
  bool json = false;     // likewise
};

// Where the files go: the folder that was named, else one beside the dump.
std::filesystem::path Folder(const ExportArguments& arguments, const char* standard) {
  if (!arguments.folder.empty()) return PathOf(arguments.folder);
  return PathOf(arguments.file).parent_path() / standard;
}

void ExportPictures(const ExportArguments& arguments, Context& context) {
  const int number = arguments.number ? ParseDecimal("--number", *arguments.number) : -1;
  const PictureFormat format = arguments.format == "png" ? PictureFormat::Png : PictureFormat::Bmp;
  Fullflash image = OpenDump(arguments.file, context);
  (void)Identify(image);  // fixes the base of all addresses
  const PictureList list = GetP(image, context.progress);
  const std::filesystem::path folder = Folder(arguments, "BMP");
  const std::string stem = PathText(PathOf(arguments.file).stem());
  PictureDecoder decoder(image.ff());
  bool found = false;
  for (const Picture& picture : list.pictures) {
    if (number >= 0 && picture.number != number) continue;
    found = true;
    const auto file = SavePicture(decoder, picture, list.colourSeen, folder, stem, format);
    if (file)
      context.out << Printable(PathText(*file)) << '\n';
    else
      context.err << "picture " << picture.number << " has no pixels: it can't be a PNG\n";
  }
  if (!found) context.status = nothingFound;
}

void ExportRingtones(const ExportArguments& arguments, Context& context) {
  std::optional<std::uint32_t> number;
  if (arguments.number) number = ParseHex("--number", *arguments.number);
  const RingtoneFormat format = arguments.format == "midi"  ? RingtoneFormat::Midi
                                : arguments.format == "wav" ? RingtoneFormat::Wave
                                                            : RingtoneFormat::Raw;
  Fullflash image = OpenDump(arguments.file, context);
  (void)Identify(image);  // fixes the base of all addresses
  const std::filesystem::path folder = Folder(arguments, "MIDI");
  const std::string stem = PathText(PathOf(arguments.file).stem());
  bool found = false;
  for (const Ringtone& ringtone : GetRingtones(image, context.progress).ringtones) {
    if (number && ringtone.number != *number) continue;
    found = true;
    const auto file = SaveRingtone(image, ringtone, folder, stem, format);
    if (file)
      context.out << Printable(PathText(*file)) << '\n';
    else
      context.err << "ringtone " << HexOfByte(ringtone.number) << " is a file of another format\n";
  }
  if (!found) context.status = nothingFound;
}

void PrintBlock(const EepromBlockRecord& block, const std::filesystem::path& file, bool asJson,
                std::ostream& out) {
  const std::string path = Printable(PathText(file));
  if (!asJson) {
    out << path << '\n';
    return;
  }
  const nlohmann::ordered_json object{{"number", block.Number},    {"deleted", block.IsDeleted()},
                                      {"header", block.HeaderPos}, {"offset", block.DataOffset},
                                      {"size", block.Size},        {"path", path}};
  out << object.dump() << '\n';
}

void ExportEeprom(const ExportArguments& arguments, Context& context) try {
  std::optional<int> number;
  if (arguments.number) number = ParseDecimal("--number", *arguments.number);
  Fullflash image = OpenDump(arguments.file, context);
  const Identification info = Identify(image);
  const BlockStore store = GetEE(image, info.Model, context.progress);
  const std::filesystem::path folder = Folder(arguments, "EEPROM");
  const std::string stem = PathText(PathOf(arguments.file).stem());
  const auto blocks = BlocksToSave(store, arguments.deleted, number);
  for (const EepromBlockRecord* block : blocks) {
    const auto file = SaveBlock(image, store, *block, folder, stem);
    if (file)
      PrintBlock(*block, *file, arguments.json, context.out);
    else
      context.err << "block " << block->Number << " has no data in the image\n";
  }
  if (blocks.empty()) context.status = nothingFound;
} catch (const std::length_error& fault) {
  throw ScanFault(arguments.file, fault.what());
}

// What all kinds of export have in common.
using Exporter = void (*)(const ExportArguments& arguments, Context& context);

std::shared_ptr<ExportArguments> AddKind(CLI::App& command, Context& context, const char* kind,
                                         const char* description, const std::vector<std::string>& formats,
                                         Exporter run) {
  auto arguments = std::make_shared<ExportArguments>();
  CLI::App* added = command.add_subcommand(kind, description);
  added->add_option("FILE", arguments->file, "Dump")->required();
  added->add_option("--to", arguments->folder, "Folder, by default one beside the dump");
  added->add_option("--number", arguments->number, "Only the one of this number");
  if (!formats.empty())
    added->add_option("--format", arguments->format, "Format")->check(CLI::IsMember(formats));
  added->callback([arguments, run, &context] {
    if (arguments->number == "") throw WrongArguments("--number: a number is needed");
    run(*arguments, context);
  });
  return arguments;
}

}  // namespace

void AddExport(CLI::App& app, Context& context) {
  CLI::App* command = app.add_subcommand("export", "Write what a dump holds to files");
  command->require_subcommand(1);
  command->fallthrough();
  const auto eeprom =
      AddKind(*command, context, "eeprom", "The data of the EEPROM blocks, into EEPROM", {}, ExportEeprom);
  CLI::App* added = command->get_subcommand("eeprom");
  added->add_flag("--deleted", eeprom->deleted, "Deleted blocks and older generations too");
  added->add_flag("--json", eeprom->json, "One JSON object a file and line");
  AddKind(*command, context, "pictures", "The pictures, into BMP", {"bmp", "png"}, ExportPictures);
  AddKind(*command, context, "ringtones", "The ringtones, into MIDI", {"raw", "midi", "wav"},
          ExportRingtones);
}

}  // namespace tarvelo::cli
