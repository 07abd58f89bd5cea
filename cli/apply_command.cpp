#include <CLI/CLI.hpp>
#include <ostream>

#include "cli/commands.h"
#include "cli/context.h"
#include "patch/patch_apply.h"
#include "patch/patch_lines.h"

namespace tarvelo::cli {
namespace {

struct ApplyArguments {
  std::string file;
  std::string patch;
  std::string output;
  bool force = false;
};

// A patch, and how it fits the dump.
struct Checked {
  ReadPatch patch;
  PatchCheck check;

  [[nodiscard]] std::size_t Unfit() const {
    return patch.invalid.size() + check.Count(Fit::Mismatch) + check.Count(Fit::Outside);
  }
};

ReadPatch ReadPatchFile(const std::string& file, Context& context) {
  const FileBytes bytes = ReadFile(PathOf(file), Fullflash::sizeLimit, context.progress);
  return ReadPatchText({reinterpret_cast<const char*>(bytes.data.get()), bytes.size});
}

void PrintChange(const PatchChange& patched, const CheckedChange& checked, std::ostream& out) {
  const Change& change = patched.change;
  const auto most = static_cast<std::size_t>(longestPatchLine);
  out << patched.line << '\t' << (checked.fit == Fit::Outside ? "outside" : "mismatch") << '\t'
      << PatchAddress(change.offset) << '\t' << FirstBytes(change.oldBytes, most);
  if (checked.fit == Fit::Mismatch) out << '\t' << FirstBytes(checked.found, most);
  out << '\n';
}

// The lines that do not fit, in the order of the patch, and how many of each kind there are.
void PrintReport(const Checked& checked, std::ostream& out) {
  const std::vector<InvalidPatchLine>& invalid = checked.patch.invalid;
  auto next = invalid.begin();
  const auto printInvalid = [&](std::size_t before) {
    for (; next != invalid.end() && next->line < before; ++next)
      out << next->line << "\tinvalid\t" << InOneLine(next->text) << '\n';
  };
  for (std::size_t i = 0; i < checked.patch.changes.size(); ++i) {
    const CheckedChange& change = checked.check.changes[i];
    if (change.fit == Fit::Fine || change.fit == Fit::Applied) continue;
    printInvalid(checked.patch.changes[i].line);
    PrintChange(checked.patch.changes[i], change, out);
  }
  printInvalid(std::string::npos);
  out << "fine " << checked.check.Count(Fit::Fine) << ", applied already "
      << checked.check.Count(Fit::Applied) << ", mismatch " << checked.check.Count(Fit::Mismatch)
      << ", outside " << checked.check.Count(Fit::Outside) << ", invalid " << invalid.size() << '\n';
}

// Why there is nothing to write.
std::string NothingToApply(const ApplyArguments& arguments, const Checked& checked) {
  if (checked.Unfit() > 0) return arguments.patch + ": no change of it can be made in " + arguments.file;
  if (checked.check.CarriesAll()) return arguments.file + ": it carries " + arguments.patch + " already";
  return arguments.patch + ": there is no change in it";
}

void Apply(const ApplyArguments& arguments, Context& context) {
  RefuseStandardInput(arguments.patch);
  CheckOutput("--output", arguments.output, {arguments.file, arguments.patch});
  Fullflash image = OpenDump(arguments.file, context);
  Checked checked{ReadPatchFile(arguments.patch, context), {}};
  checked.check = CheckPatch(checked.patch.changes, image);
  PrintReport(checked, context.out);
  const std::string unfit = std::to_string(checked.Unfit()) + " of its lines don't fit " + arguments.file;
  if (checked.Unfit() > 0 && !arguments.force)
    throw ScanFault(arguments.patch, unfit + ", nothing was written");
  const std::vector<Change> changes = checked.check.ToWrite(checked.patch.changes);
  if (changes.empty()) {
    context.err << InOneLine(NothingToApply(arguments, checked)) << '\n';
    context.status = nothingFound;
    return;
  }
  for (const Change& change : changes) image.Write(change.offset, change.newBytes);
  ReplaceFile(PathOf(arguments.output),
              {reinterpret_cast<const char*>(image.ff().data()), image.ff().size()});
  if (checked.Unfit() > 0)
    context.err << InOneLine(arguments.patch + ": " + unfit + ", the others were applied") << '\n';
}

}  // namespace

void AddApply(CLI::App& app, Context& context) {
  auto arguments = std::make_shared<ApplyArguments>();
  CLI::App* command = app.add_subcommand("apply", "Apply a patch file to a copy of a dump");
  command->add_option("FILE", arguments->file, "Dump")->required();
  command->add_option("PATCH", arguments->patch, "Patch file")->required();
  command->add_option("--output", arguments->output, "The dump to write")->required();
  command->add_flag("--force", arguments->force, "Apply the changes that fit, even where others don't");
  command->callback([arguments, &context] { Apply(*arguments, context); });
}

}  // namespace tarvelo::cli
