#include <ostream>

#include "cli/code_files.h"
#include "cli/commands.h"
#include "cli/numbers.h"
#include "cli/output.h"
#include "cli/subcommands.h"
#include "code/references.h"
#include "core/places.h"

namespace tarvelo::cli {
namespace {

DppPages PagesOf(const RefsArguments& arguments) {
  constexpr std::uint32_t lastPage = 0x3FF;
  const std::optional<std::string>* const given[] = {&arguments.dpp0, &arguments.dpp1, &arguments.dpp2,
                                                     &arguments.dpp3};
  DppPages pages;
  for (std::size_t i = 0; i < pages.size(); ++i) {
    if (!*given[i]) continue;
    const std::string option = "--dpp" + std::to_string(i);
    if ((*given[i])->empty()) throw WrongArguments(option + ": a number is needed");
    const std::uint32_t page = ParseHex(option, **given[i]);
    if (page > lastPage) throw WrongArguments(option + ": a page is at most 3FF");
    pages[i] = static_cast<std::uint16_t>(page);
  }
  return pages;
}

std::string PlainLine(const Reference& reference, const Fullflash& image) {
  return OffsetText(image, reference.offset) + '\t' + SegmentText(image, reference.offset) + '\t' +
         std::string(NameOf(reference.kind)) + '\t' + std::string(NameOf(reference.sure)) + '\t' +
         TextOf(reference, image) + '\n';
}

std::string ObjectLine(const Reference& reference, const Fullflash& image) {
  return JsonLine({{"offset", reference.offset},
                   {"kind", NameOf(reference.kind)},
                   {"sure", NameOf(reference.sure)},
                   {"text", TextOf(reference, image)}});
}

}  // namespace

void Refs(const RefsArguments& arguments, Context& context) {
  const Offset target = ParseOffset(arguments.offset);
  const DppPages dpps = PagesOf(arguments);
  const std::optional<Dump> dump = OpenCode(arguments.file, context);
  if (!dump) return;
  const Fullflash& image = dump->image;
  CheckPlace(target, *dump, arguments.file);
  const FunctionList functions = GetFunctions(image, context.progress);
  bool isAny = false;
  for (const Reference& reference : GetReferences(image, target, functions, dpps, context.progress)) {
    if (reference.sure == ReferenceSureness::Possible && !arguments.all) continue;
    PrintPiece(arguments.json ? ObjectLine(reference, image) : PlainLine(reference, image), context);
    isAny = true;
  }
  if (!isAny) context.status = nothingFound;
}

}  // namespace tarvelo::cli
