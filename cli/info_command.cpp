#include <CLI/CLI.hpp>
#include <algorithm>
#include <nlohmann/json.hpp>
#include <ostream>

#include "cli/commands.h"
#include "cli/context.h"
#include "core/identification.h"
#include "core/summary.h"

namespace tarvelo::cli {
namespace {

using Json = nlohmann::ordered_json;

struct InfoArguments {
  std::vector<std::string> files;
  bool json = false;
};

Json T9Json(const T9Area& t9) {
  return {{"base", t9.T9Base}, {"size", t9.T9Size},   {"full", t9.T9Full},
          {"free", t9.T9Free}, {"empty", t9.Empty()}, {"languages", t9.languages}};
}

std::string InfoJson(const std::string& file, const Fullflash& image, const Identification& info) {
  Json object;
  object["path"] = Printable(file);
  object["size"] = image.ff().size();
  object["load_base"] = image.LoadBase();
  object["corr_base"] = image.CorrBase();
  object["page_mode"] = image.PageMode();
  object["model"] = info.Model;
  object["family"] = info.Family;
  object["sig_pos"] = info.SigPos ? Json(*info.SigPos) : Json();
  object["version"] = info.version;
  object["header_text"] = info.headerText;
  object["t9"] = info.t9 ? T9Json(*info.t9) : Json();
  object["empty_blocks"] = info.EmptyBlocks;
  return object.dump(-1, ' ', false, Json::error_handler_t::replace);
}

void PrintInfo(const InfoArguments& arguments, Context& context) {
  std::ranges::for_each(arguments.files, RefuseStandardInput);
  bool first = true;
  for (const std::string& file : arguments.files) {
    try {
      Fullflash image = OpenDump(file, context);
      const Identification info = Identify(image);
      if (arguments.json) {
        context.out << InfoJson(file, image, info) << '\n';
        continue;
      }
      context.out << (first ? "" : "\n") << Summary(Printable(file), image, info, context.messages);
      first = false;
    } catch (const FileError& error) {  // the others are still shown
      Diagnose(context, error);
      context.status = fileTrouble;
    }
  }
}

}  // namespace

void AddInfo(CLI::App& app, Context& context) {
  auto arguments = std::make_shared<InfoArguments>();
  CLI::App* command = app.add_subcommand("info", "Print what each dump is");
  command->add_option("FILE", arguments->files, "Dumps")->required();
  command->add_flag("--json", arguments->json, "One JSON object a file and line");
  command->callback([arguments, &context] { PrintInfo(*arguments, context); });
}

}  // namespace tarvelo::cli
