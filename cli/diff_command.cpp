#include <algorithm>
#include <ostream>

#include "cli/code_files.h"
#include "cli/commands.h"
#include "cli/files.h"
#include "cli/output.h"
#include "cli/subcommands.h"
#include "patch/image_compare.h"
#include "patch/patch_document.h"
#include "patch/patch_lines.h"
#include "patch/pattern.h"
#include "versions/function_table.h"

namespace tarvelo::cli {
namespace {

// Two dumps and their differences.
struct Pair {
  Dump one;
  Fullflash other;
  Comparison comparison;

  [[nodiscard]] const char* Longer() const { return comparison.restOfOld > 0 ? "FILE" : "OTHER"; }
  [[nodiscard]] Offset Rest() const { return comparison.restOfOld + comparison.restOfNew; }
  [[nodiscard]] bool IsRestInFront() const { return comparison.start > 0 || comparison.shift > 0; }
  // The first byte of the rest, as an offset of the first dump: below 0 if only the other one has it.
  [[nodiscard]] Offset RestStart() const {
    return IsRestInFront() ? -comparison.restOfNew : comparison.common;
  }
};

std::string SignedAddress(Offset offset) {
  return offset < 0 ? "-" + PatchAddress(-offset) : PatchAddress(offset);
}

std::string Place(const Pair& pair, Offset offset, Offset size) {
  return SignedAddress(offset) + "\t" + PatchAddress(pair.one.image.PhoneAddress(offset)) + "\t" +
         std::to_string(size);
}

Json PlaceJson(const Pair& pair, Offset offset, Offset size) {
  return {{"offset", offset}, {"address", pair.one.image.PhoneAddress(offset)}, {"length", size}};
}

void PrintDifferences(const Pair& pair, bool json, std::ostream& out) {
  constexpr std::size_t most = differenceBytesShown;
  for (const auto& [offset, size] : pair.comparison.differences) {
    const Bytes from = pair.one.image.Region(offset, size);
    const Bytes to = pair.other.Region(offset + pair.comparison.shift, size);
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
  const Offset start = pair.RestStart();
  if (json) {
    Json object = PlaceJson(pair, start, pair.Rest());
    object["only"] = pair.Longer();
    out << JsonLine(object);
  } else {
    out << Place(pair, start, pair.Rest()) << "\tonly in " << pair.Longer() << '\n';
  }
}

// Writes the patch that turns the first dump into the second.
void WritePatch(const DiffArguments& arguments, const Pair& pair, Context& context) {
  const std::vector<Difference>& differences = pair.comparison.differences;
  const std::string name = PathText(PathOf(arguments.other).filename());
  const std::string document =
      differences.empty() ? std::string()
                          : PatchBlock(Printable(name), PatchLines(pair.one.image.ff(), pair.other.ff(),
                                                                   differences, pair.comparison.shift));
  ReplaceFile(PathOf(*arguments.patch), PatchFile(pair.one.info.StatusText(), document));
  if (!pair.comparison.SameLength())
    context.err << PrintableLine(*arguments.patch) << ": the bytes that are only in " << pair.Longer()
                << " are not in this patch\n";
}

// --- code ---

Json RegionJson(const Fullflash& image, const Region& code, const tarvelo::Names& names) {
  if (code.size == 0) return nullptr;
  const std::uint32_t address = image.PhoneAddress(code.offset);
  return {{"offset", code.offset},
          {"address", address},
          {"size", code.size},
          {"name", Printable(std::string(names.NameAt(address)))}};
}

void PrintFunctions(const std::vector<ComparedFunction>& functions, const CodeVersions& versions,
                    const Dump& old, const Dump& now, Context& context) {
  for (const ComparedFunction& function : functions)
    context.out << JsonLine({{"state", StateText(function.state)},
                             {"old", RegionJson(versions.Old(), function.old, old.names)},
                             {"new", RegionJson(versions.New(), function.now, now.names)},
                             {"edited", function.edited},
                             {"constants", function.constants}});
}

void DiffCode(const DiffArguments& arguments, Context& context) {
  if (arguments.patch || arguments.fromStart)
    throw WrongArguments("--code: it goes with neither --patch nor --from-start");
  const std::optional<Dump> old = OpenCode(arguments.file, context);
  const std::optional<Dump> now = old ? OpenCode(arguments.other, context) : std::nullopt;
  if (!now) return;
  const CodeVersions versions(old->image, now->image, context.progress);
  const std::vector<ComparedFunction> functions = CompareFunctions(versions);
  if (arguments.json)
    PrintFunctions(functions, versions, *old, *now, context);
  else
    PrintTable(FunctionRows(functions, versions, old->names, now->names), context);
  const auto counts = CountStates(functions);
  if (counts[0] < static_cast<int>(functions.size())) return;
  context.err << PrintableLine(arguments.other) << ": no function differs from those of "
              << PrintableLine(arguments.file) << '\n';
  context.status = nothingFound;
}

}  // namespace

void Diff(const DiffArguments& arguments, Context& context) {
  if (arguments.patch) CheckOutput("--patch", *arguments.patch, {arguments.file, arguments.other});
  RefuseStandardInput(arguments.other);
  if (arguments.code) return DiffCode(arguments, context);
  Pair pair{OpenDump(arguments.file, context.progress), ReadImage(arguments.other, context.progress), {}};
  const Offset shift = arguments.fromStart ? 0 : AddressShift(pair.one.image, pair.other);
  pair.comparison = Compare(pair.one.image.ff(), pair.other.ff(), usualGap, shift);
  if (arguments.patch) WritePatch(arguments, pair, context);
  if (pair.IsRestInFront()) PrintRest(pair, arguments.json, context.out);
  PrintDifferences(pair, arguments.json, context.out);
  if (!pair.IsRestInFront()) PrintRest(pair, arguments.json, context.out);
  if (!pair.comparison.Same()) return;
  context.err << PrintableLine(arguments.other) << ": it is the same as " << PrintableLine(arguments.file)
              << '\n';
  context.status = nothingFound;
}

}  // namespace tarvelo::cli
