#include <algorithm>
#include <ostream>

#include "cli/commands.h"
#include "cli/each_dump.h"
#include "cli/files.h"
#include "cli/in_order.h"
#include "cli/output.h"
#include "cli/subcommands.h"
#include "core/summary.h"

namespace tarvelo::cli {
namespace {

Json T9Json(const T9Area& t9) {
  return {{"base", t9.T9Base}, {"size", t9.T9Size},   {"full", t9.T9Full},
          {"free", t9.T9Free}, {"empty", t9.Empty()}, {"languages", t9.languages}};
}

std::string InfoJson(const std::string& file, const Dump& dump) {
  const Fullflash& image = dump.image;
  const Identification& info = dump.info;
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
  return JsonLine(object);
}

}  // namespace

void Info(const InfoArguments& arguments, Context& context) {
  const std::vector<std::string>& files = arguments.files;
  const std::size_t jobs = JobsOf(arguments.jobs);
  std::ranges::for_each(files, RefuseStandardInput);
  NoProgress none;
  Progress& progress = files.size() == 1 ? context.progress : none;  // several files would share one bar
  InOrder<std::string> texts(files.size(), jobs, [&](std::size_t i) {
    const Dump dump = OpenDump(files[i], progress);
    return arguments.json ? InfoJson(files[i], dump)
                          : Summary(Printable(files[i]), dump.image, dump.info, context.messages);
  });
  bool first = true;
  for (std::size_t i = 0; i < files.size(); ++i) {
    try {
      const std::string text = texts.Get(i);
      context.out << (first || arguments.json ? "" : "\n") << text;
      first = false;
    } catch (const FileError& error) {  // the other files are still shown
      Diagnose(context, error);
      context.status = fileTrouble;
    }
  }
}

}  // namespace tarvelo::cli
