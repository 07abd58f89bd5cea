#include <ostream>
#include <span>

#include "cli/commands.h"
#include "cli/each_dump.h"
#include "cli/files.h"
#include "cli/output.h"
#include "cli/subcommands.h"
#include "patch/hit_search.h"

namespace tarvelo::cli {
namespace {

// Prints hits as they are found, collected into larger pieces. The progress bar makes way for them.
class HitPrinter {
 public:
  HitPrinter(const Pattern& pattern, bool json, Context& context)
      : pattern_(pattern), json_(json), context_(context) {}

  void Add(std::span<const Offset> hits, Bytes piece, Offset at) {
    const auto length = static_cast<std::size_t>(pattern_.PatCount());
    for (const Offset hit : hits) {
      const Bytes found = piece.subspan(static_cast<std::size_t>(hit - at), length);
      lines_ += json_ ? JsonLine({{"offset", hit}, {"bytes", HexOfBytes(found)}})
                      : LineOfHit(++number_, hit, found) + "\n";
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
  const Pattern& pattern_;
  const bool json_;
  Context& context_;
  std::string lines_;
  std::size_t number_ = 0;
  bool any_ = false;
};

void FindIn(const std::string& dump, const FindArguments& arguments, Context& context) {
  FileReader file = OpenInPieces(dump);
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

void Find(const FindArguments& arguments, Context& context) {
  if (arguments.pattern.empty()) throw WrongArguments("PATTERN: it is empty");
  OnEach(arguments.files, JobsOf(arguments.jobs), arguments.json ? Printed::Json : Printed::Lines, context,
         [&](const std::string& file, Context& own) { FindIn(file, arguments, own); });
}

}  // namespace tarvelo::cli
