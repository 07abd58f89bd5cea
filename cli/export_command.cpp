#include <CLI/CLI.hpp>
#include <optional>
#include <ostream>

#include "cli/commands.h"
#include "cli/context.h"
#include "core/identification.h"
#include "core/notation.h"
#include "media/picture_files.h"
#include "media/picture_search.h"
#include "media/ringtone_files.h"
#include "media/ringtone_search.h"

namespace tarvelo::cli {
namespace {

struct ExportArguments {
  std::string file;
  std::string folder;
  std::optional<std::string> number;
  std::string format;
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

// What all kinds of export have in common.
void AddKind(CLI::App& command, Context& context, const char* kind, const char* description,
             const std::vector<std::string>& formats,
             void (*run)(const ExportArguments& arguments, Context& context)) {
  auto arguments = std::make_shared<ExportArguments>();
  CLI::App* added = command.add_subcommand(kind, description);
  added->add_option("FILE", arguments->file, "Dump")->required();
  added->add_option("--to", arguments->folder, "Folder, by default one beside the dump");
  added->add_option("--number", arguments->number, "Only the one of this number");
  added->add_option("--format", arguments->format, "Format")->check(CLI::IsMember(formats));
  added->callback([arguments, run, &context] { run(*arguments, context); });
}

}  // namespace

void AddExport(CLI::App& app, Context& context) {
  CLI::App* command = app.add_subcommand("export", "Write what a dump holds to files");
  command->require_subcommand(1);
  command->fallthrough();
  AddKind(*command, context, "pictures", "The pictures, into BMP", {"bmp", "png"}, ExportPictures);
  AddKind(*command, context, "ringtones", "The ringtones, into MIDI", {"raw", "midi", "wav"},
          ExportRingtones);
}

}  // namespace tarvelo::cli
