#include <CLI/CLI.hpp>
#include <optional>
#include <ostream>

#include "cli/commands.h"
#include "cli/context.h"
#include "core/identification.h"
#include "media/picture_files.h"
#include "media/picture_search.h"

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

}  // namespace

void AddExport(CLI::App& app, Context& context) {
  CLI::App* command = app.add_subcommand("export", "Write what a dump holds to files");
  command->require_subcommand(1);
  command->fallthrough();
  auto arguments = std::make_shared<ExportArguments>();
  CLI::App* pictures = command->add_subcommand("pictures", "The pictures, as bitmaps");
  pictures->add_option("FILE", arguments->file, "Dump")->required();
  pictures->add_option("--to", arguments->folder, "Folder, by default BMP beside the dump");
  pictures->add_option("--number", arguments->number, "Only the picture of this number (decimal)");
  pictures->add_option("--format", arguments->format, "bmp or png")->check(CLI::IsMember({"bmp", "png"}));
  pictures->callback([arguments, &context] { ExportPictures(*arguments, context); });
}

}  // namespace tarvelo::cli
