#include <ostream>

#include "cli/code_files.h"
#include "cli/commands.h"
#include "cli/files.h"
#include "cli/output.h"
#include "cli/subcommands.h"
#include "document/used_areas.h"
#include "patch/pattern.h"
#include "port/carried_lines.h"
#include "port/port_text.h"

namespace tarvelo::cli {
namespace {

Json JsonOf(const Change& change, const PortedChange& ported) {
  Json object{{"offset", change.offset}, {"status", ported.refusal ? "refused" : "ported"}};
  if (ported.refusal) {
    object["new_offset"] = object["old_bytes"] = object["new_bytes"] = nullptr;
  } else {
    object["new_offset"] = ported.offset;
    object["old_bytes"] = HexOfBytes(ported.oldBytes);
    object["new_bytes"] = HexOfBytes(ported.newBytes);
  }
  object["context"] = ported.context;
  object["reason"] = ported.refusal ? std::string(ReasonOf(*ported.refusal)) : std::string();
  return object;
}

// What makes one doubt that the dumps belong together.
void Warn(const PortArguments& arguments, const Dump& old, const Dump& now, const CarriedLines& lines,
          Context& context) {
  if (old.info.Model != now.info.Model)
    context.err << PrintableLine(arguments.now) << ": another phone than " << PrintableLine(arguments.old)
                << '\n';
  if (lines.Carried() < lines.Count())
    context.err << PrintableLine(arguments.patch) << ": " << lines.Count() - lines.Carried() << " of "
                << lines.Count() << " changes could not be carried over\n";
  if (lines.IsFarApart())
    context.err << PrintableLine(arguments.now) << ": its firmware is far from that of "
                << PrintableLine(arguments.old) << '\n';
}

// Empty areas for what finds its own not empty.
std::vector<AreaMove> Offers(std::span<const PortedChange> ported, std::span<const PatchChange> changes,
                             const CodeVersions& versions, const Dump& now, Context& context) {
  if (!FindsAreasUsed(ported)) return {};
  return OfferAreas(changes, versions.Old(), versions.New(), versions.Pairing(), context.progress,
                    UsedAreas(now, context.progress));
}

void SayOffers(std::span<const AreaMove> offers, const PortArguments& arguments, Context& context) {
  for (const AreaMove& offer : offers)
    context.err << PrintableLine(arguments.now) << ": in use where " << PrintableLine(arguments.old)
                << " is empty (" << TextOf(offer.from)
                << (arguments.moveAreas ? "); carried to " : "); --move-areas would carry that to ")
                << TextOf({offer.to, offer.from.size}) << '\n';
}

}  // namespace

void Port(const PortArguments& arguments, Context& context) {
  RefuseStandardInput(arguments.patch);
  if (arguments.output)
    CheckOutput("--output", *arguments.output, {arguments.old, arguments.now, arguments.patch});
  const std::optional<Dump> old = OpenCode(arguments.old, context);
  const std::optional<Dump> now = OpenCode(arguments.now, context);
  if (!old || !now) return;
  const std::string text = ReadText(arguments.patch, context.progress);
  const ReadPatch patch = ReadPatchText(text);
  const CodeVersions versions(old->image, now->image, context.progress);
  std::vector<PortedChange> ported =
      PortChanges(patch.changes, old->image, now->image, versions.Pairing(), context.progress);
  const std::vector<AreaMove> offers = Offers(ported, patch.changes, versions, *now, context);
  SayOffers(offers, arguments, context);
  if (arguments.moveAreas && !offers.empty())
    ported = PortChanges(patch.changes, old->image, now->image, versions.Pairing(), context.progress, offers);

  const std::string result = PortedText(text, patch.changes, ported);
  if (arguments.output)
    ReplaceFile(PathOf(*arguments.output), result);
  else if (!arguments.json)
    PrintPiece(result, context);
  if (arguments.json)
    for (std::size_t i = 0; i < ported.size(); ++i)
      context.out << JsonLine(JsonOf(patch.changes[i].change, ported[i]));
  const CarriedLines lines(patch, ported, versions, context.messages);
  Warn(arguments, *old, *now, lines, context);
  if (lines.Carried() < lines.Count() || ported.empty()) context.status = nothingFound;
}

}  // namespace tarvelo::cli
