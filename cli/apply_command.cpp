#include <ostream>

#include "cli/commands.h"
#include "cli/each_dump.h"
#include "cli/files.h"
#include "cli/output.h"
#include "cli/subcommands.h"
#include "patch/misfits.h"
#include "patch/patch_lines.h"

namespace tarvelo::cli {
namespace {

// A patch and its check against the dump.
struct Checked {
  ReadPatch patch;
  PatchCheck check;

  [[nodiscard]] std::size_t Unfit() const { return CountMisfits(patch, check); }
};

void PrintChange(const PatchChange& patched, const CheckedChange& checked, std::ostream& out) {
  const Change& change = patched.change;
  const auto most = static_cast<std::size_t>(longestPatchLine);
  out << patched.line << '\t' << (checked.fit == Fit::Outside ? "outside" : "mismatch") << '\t'
      << PatchAddress(change.offset) << '\t' << FirstBytes(change.oldBytes, most);
  if (checked.fit == Fit::Mismatch) out << '\t' << FirstBytes(checked.found, most);
  out << '\n';
}

// Prints the lines that do not fit, in the order of the patch, and the number of each kind.
void PrintReport(const Checked& checked, std::ostream& out) {
  const auto& [patch, check] = checked;
  for (const Misfit& misfit : MisfitsOf(patch, check))
    if (misfit.isInvalid)
      out << misfit.line << "\tinvalid\t" << PrintableLine(patch.invalid[misfit.index].text) << '\n';
    else
      PrintChange(patch.changes[misfit.index], check.changes[misfit.index], out);
  out << "fine " << check.Count(Fit::Fine) << ", applied already " << check.Count(Fit::Applied)
      << ", mismatch " << check.Count(Fit::Mismatch) << ", outside " << check.Count(Fit::Outside)
      << ", invalid " << patch.invalid.size() << '\n';
}

// The reason why there is nothing to write.
std::string NothingToApply(const std::string& file, const ApplyArguments& arguments, const Checked& checked) {
  const std::string& patch = arguments.patch;
  if (checked.Unfit() > 0) return patch + ": no change of it can be made in " + file;
  if (checked.check.CarriesAll())
    return file + (arguments.reverse ? ": it does not carry " + patch : ": it carries " + patch + " already");
  return patch + ": there is no change in it";
}

ReadPatch PatchOf(const ApplyArguments& arguments, Context& context) {
  ReadPatch patch = ReadPatchFile(PathOf(arguments.patch), Fullflash::sizeLimit, context.progress);
  return arguments.reverse ? Reversed(std::move(patch)) : patch;
}

// Prints what the patch and a dump have to do with each other.
void CheckOne(const std::string& file, const ReadPatch& patch, Context& context) {
  const Dump dump = OpenDump(file, context.progress);
  const Checked checked{patch, CheckPatch(patch.changes, dump.image)};
  const bool fits = checked.Unfit() == 0 && !patch.changes.empty();
  context.out << (!fits                        ? "does not fit"
                  : checked.check.CarriesAll() ? "applied already"
                                               : "fits")
              << '\t' << PrintableLine(dump.info.StatusText()) << '\n';
  PrintReport(checked, context.out);
  if (!fits) context.status = nothingFound;
}

void Check(const ApplyArguments& arguments, Context& context) {
  if (arguments.output) throw WrongArguments("--output: --check writes nothing");
  const ReadPatch patch = PatchOf(arguments, context);
  OnEach(arguments.files, JobsOf(arguments.jobs), Printed::Lines, context,
         [&](const std::string& file, Context& own) { CheckOne(file, patch, own); });
}

}  // namespace

void Apply(const ApplyArguments& arguments, Context& context) {
  RefuseStandardInput(arguments.patch);
  if (arguments.check) return Check(arguments, context);
  if (arguments.files.size() > 1) throw WrongArguments("FILE: a patch is applied to one dump at a time");
  if (!arguments.output) throw WrongArguments("--output is required");
  const std::string& file = arguments.files[0];
  CheckOutput("--output", *arguments.output, {file, arguments.patch});
  Fullflash image = ReadImage(file, context.progress);
  Checked checked{PatchOf(arguments, context), {}};
  checked.check = CheckPatch(checked.patch.changes, image);
  PrintReport(checked, context.out);
  const std::string unfit = std::to_string(checked.Unfit()) + " of its lines don't fit " + file;
  if (checked.Unfit() > 0 && !arguments.force)
    throw ScanFault(arguments.patch, unfit + ", nothing was written");
  const std::vector<Change> changes = checked.check.ToWrite(checked.patch.changes);
  if (changes.empty()) {
    context.err << PrintableLine(NothingToApply(file, arguments, checked)) << '\n';
    context.status = nothingFound;
    return;
  }
  for (const Change& change : changes) image.Write(change.offset, change.newBytes);
  ReplaceFile(PathOf(*arguments.output),
              {reinterpret_cast<const char*>(image.ff().data()), image.ff().size()});
  if (checked.Unfit() > 0)
    context.err << PrintableLine(arguments.patch + ": " + unfit + ", the others were applied") << '\n';
}

}  // namespace tarvelo::cli
