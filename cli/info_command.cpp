#include <CLI/CLI.hpp>
#include <algorithm>
#include <nlohmann/json.hpp>
#include <optional>
#include <ostream>
#include <thread>

#include "cli/commands.h"
#include "cli/context.h"
#include "cli/in_order.h"
#include "core/identification.h"
#include "core/summary.h"

namespace tarvelo::cli {
namespace {

using Json = nlohmann::ordered_json;

struct InfoArguments {
  std::vector<std::string> files;
  bool json = false;
  std::optional<std::string> jobs;
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

std::size_t Jobs(const InfoArguments& arguments) {
  if (!arguments.jobs) return std::max(1u, std::thread::hardware_concurrency());
  const int jobs = ParseDecimal("--jobs", *arguments.jobs);
  if (jobs < 1) throw WrongArguments("--jobs: there must be one at least");
  return static_cast<std::size_t>(jobs);
}

void PrintInfo(const InfoArguments& arguments, Context& context) {
  const std::vector<std::string>& files = arguments.files;
  const std::size_t jobs = Jobs(arguments);
  std::ranges::for_each(files, RefuseStandardInput);
  NoProgress none;
  Progress& progress = files.size() == 1 ? context.progress : none;  // several would share one bar
  InOrder<std::string> texts(files.size(), jobs, [&](std::size_t i) {
    Fullflash image = OpenDump(files[i], progress);
    const Identification info = Identify(image);
    return arguments.json ? InfoJson(files[i], image, info) + "\n"
                          : Summary(Printable(files[i]), image, info, context.messages);
  });
  bool first = true;
  for (std::size_t i = 0; i < files.size(); ++i) {
    try {
      const std::string text = texts.Get(i);
      context.out << (first || arguments.json ? "" : "\n") << text;
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
  command->add_option("--jobs", arguments->jobs, "Dumps at a time (default: the number of processors)");
  command->callback([arguments, &context] { PrintInfo(*arguments, context); });
}

}  // namespace tarvelo::cli
