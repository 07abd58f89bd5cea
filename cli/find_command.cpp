#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>
#include <ostream>
#include <span>

#include "cli/commands.h"
#include "cli/context.h"
#include "patch/hit_search.h"

namespace tarvelo::cli {
namespace {

struct FindArguments {
  std::string file;
  std::string pattern;
  bool json = false;
};

// Prints hits as they are found. Lines are gathered, and the progress bar gives way to them.
class HitPrinter {
 public:
  HitPrinter(const Pattern& pattern, bool json, Context& context)
      : pattern_(pattern), json_(json), context_(context) {}

  void Add(std::span<const Offset> hits, Bytes piece, Offset at) {
    const auto length = static_cast<std::size_t>(pattern_.PatCount());
    for (const Offset hit : hits) {
      const Bytes found = piece.subspan(static_cast<std::size_t>(hit - at), length);
      lines_.append(json_ ? Json(hit, found) : LineOfHit(++number_, hit, found)).append("\n");
      if (lines_.size() > 0x10000) Write();
    }
    any_ = true;
  }

  void Write() {
    context_.progress.Finish();
    context_.out << lines_ << std::flush;
    lines_.clear();
    if (!context_.out) throw std::runtime_error("the output can't be written");
  }

  [[nodiscard]] bool Any() const { return any_; }

 private:
  static std::string Json(Offset hit, Bytes found) {
    return nlohmann::ordered_json{{"offset", hit}, {"bytes", HexOfBytes(found)}}.dump();
  }

  const Pattern& pattern_;
  const bool json_;
  Context& context_;
  std::string lines_;
  std::size_t number_ = 0;
  bool any_ = false;
};

void PrintHits(const FindArguments& arguments, Context& context) {
  if (arguments.pattern.empty()) throw WrongArguments("PATTERN: it is empty");
  FileReader file = OpenDumpFile(arguments.file);
  const Pattern pattern(arguments.pattern);
  HitPrinter printer(pattern, arguments.json, context);
  try {
    ProgressRun run(context.progress, 0, static_cast<Offset>(file.Size()));
    FindInFile(file, pattern, context.progress,
               [&](std::span<const Offset> hits, Bytes piece, Offset at) { printer.Add(hits, piece, at); });
  } catch (const FileError&) {
    printer.Write();
    throw;
  }
  printer.Write();
  if (printer.Any()) return;
  context.err << NotFound(Printable(arguments.pattern), context.messages) << '\n';
  context.status = nothingFound;
}

}  // namespace

void AddFind(CLI::App& app, Context& context) {
  auto arguments = std::make_shared<FindArguments>();
  CLI::App* command = app.add_subcommand("find", "Print where a byte pattern occurs");
  command->add_option("FILE", arguments->file, "Dump")->required();
  command->add_option("PATTERN", arguments->pattern, "Hexadecimal bytes, ?? for any: E6??4100E6")->required();
  command->add_flag("--json", arguments->json, "One JSON object a hit and line");
  command->callback([arguments, &context] { PrintHits(*arguments, context); });
}

}  // namespace tarvelo::cli
