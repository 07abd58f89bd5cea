#include <algorithm>
#include <ostream>

#include "cli/commands.h"
#include "cli/files.h"
#include "cli/output.h"
#include "cli/subcommands.h"
#include "patch/image_compare.h"
#include "patch/patch_document.h"
#include "patch/patch_lines.h"
#include "patch/pattern.h"

namespace tarvelo::cli {
namespace {

// Two dumps and their differences.
struct Pair {
  Dump one;
  Fullflash other;
  Comparison comparison;

  [[nodiscard]] const char* Longer() const { return comparison.restOfOld > 0 ? "FILE" : "OTHER"; }
  [[nodiscard]] Offset Rest() const { return comparison.restOfOld + comparison.restOfNew; }
};

std::string Place(const Pair& pair, Offset offset, Offset size) {
  return PatchAddress(offset) + "\t" + PatchAddress(pair.one.image.PhoneAddress(offset)) + "\t" +
         std::to_string(size);
}

Json PlaceJson(const Pair& pair, Offset offset, Offset size) {
  return {{"offset", offset}, {"address", pair.one.image.PhoneAddress(offset)}, {"length", size}};
}

void PrintDifferences(const Pair& pair, bool json, std::ostream& out) {
  constexpr std::size_t most = differenceBytesShown;
  for (const auto& [offset, size] : pair.comparison.differences) {
    const Bytes from = pair.one.image.Region(offset, size);
    const Bytes to = pair.other.Region(offset, size);
    if (json) {
      Json object = PlaceJson(pair, offset, size);
      object["old"] = HexOfBytes(from.first(std::min(most, from.size())));
      object["new"] = HexOfBytes(to.first(std::min(most, to.size())));
      out << JsonLine(object);
    } else {
      out << Place(pair, offset, size) << '\t' << FirstBytes(from, most) << '\t' << FirstBytes(to, most)
          << '\n';
    }
  }
}

void PrintRest(const Pair& pair, bool json, std::ostream& out) {
  if (pair.comparison.SameLength()) return;
  const Offset end = pair.comparison.common;
  if (json) {
    Json object = PlaceJson(pair, end, pair.Rest());
    object["only"] = pair.Longer();
    out << JsonLine(object);
  } else {
    out << Place(pair, end, pair.Rest()) << "\tonly in " << pair.Longer() << '\n';
  }
}

// Writes the patch that turns the first dump into the second.
void WritePatch(const DiffArguments& arguments, const Pair& pair, Context& context) {
  const std::vector<Difference>& differences = pair.comparison.differences;
  const std::string name = PathText(PathOf(arguments.other).filename());
  const std::string document =
      differences.empty()
          ? std::string()
          : PatchBlock(Printable(name), PatchLines(pair.one.image.ff(), pair.other.ff(), differences));
  ReplaceFile(PathOf(*arguments.patch), PatchFile(pair.one.info.StatusText(), document));
  if (!pair.comparison.SameLength())
    context.err << PrintableLine(*arguments.patch) << ": the bytes that are only in " << pair.Longer()
                << " are not in this patch\n";
}

}  // namespace

void Diff(const DiffArguments& arguments, Context& context) {
  if (arguments.patch) CheckOutput("--patch", *arguments.patch, {arguments.file, arguments.other});
  RefuseStandardInput(arguments.other);
  Pair pair{OpenDump(arguments.file, context.progress), ReadImage(arguments.other, context.progress), {}};
  pair.comparison = Compare(pair.one.image.ff(), pair.other.ff());
  if (arguments.patch) WritePatch(arguments, pair, context);
  PrintDifferences(pair, arguments.json, context.out);
  PrintRest(pair, arguments.json, context.out);
  if (!pair.comparison.Same()) return;
  context.err << PrintableLine(arguments.other) << ": it is the same as " << PrintableLine(arguments.file)
              << '\n';
  context.status = nothingFound;
}

}  // namespace tarvelo::cli
