// Arbitrary bytes as a dump: it is identified and summarized, every explorer searches, lists and claims, and
// the dump is mapped.
#include <optional>

#include "core/summary.h"
#include "document/explorers.h"
#include "document/map_kinds.h"
#include "document/map_table.h"
#include "fuzz/target.h"

namespace tarvelo::fuzz {
namespace {

// Limits that keep an input fast: the characters of all rows of a list, and the bytes behind one row.
constexpr std::size_t mostCharacters = 1 << 21;
constexpr Offset mostBytes = 1 << 19;

void CheckInformation(const Fullflash& image, const Identification& info) {
  Check(info.SigPos.has_value() || info.Model.empty(), "a model comes with a signature");
  if (info.SigPos) Check(*info.SigPos <= image.ffEnd(), "the header lies within the image");
  if (const auto& t9 = info.t9) {
    Check(image.PageMode(), "large images have no T9 area");
    Check(t9->T9Base % 0x10000 == 0 && t9->T9Full % 0x10000 == 0, "a T9 area is in whole blocks");
    Check(Offset{t9->T9Base} + t9->T9Full <= image.ffEnd() + 1, "a T9 area lies within the image");
    Check(t9->Empty() >= 0 && t9->Empty() <= t9->T9Full, "a T9 area's free bytes are within it");
  }
  for (const Language& language : Languages()) {
    const std::string summary = Summary("dump.bin", image, info, Messages(language));
    Check(IsUtf8(summary) && summary.ends_with('\n'), "the summary is whole lines of UTF-8");
  }
}

// Checks a row. Returns the number of its characters.
std::size_t CheckRow(const Table::Row& row, std::size_t columns, const Item& item) {
  Check(row.cells.size() == columns, "a row has a cell for each column");
  Check(std::ranges::all_of(row.cells, IsUtf8), "a cell is UTF-8");
  Check(row.marked == item.isDeleted, "rows of deleted things are marked");
  std::size_t characters = 0;
  for (const std::string& cell : row.cells) characters += cell.size();
  return characters;
}

void List(const Explorer& explorer, const Dump& dump, const Findings& found, bool deleted) {
  const Listing list = ListOf(explorer, dump, found, deleted);
  Check(!deleted || list.rows.count == explorer.count(found), "a record has a row");
  std::size_t characters = 0;
  for (std::size_t row = 0; row < list.rows.count && characters < mostCharacters; ++row) {
    const Item item = explorer.item(found, list.RecordOf(row));
    Check(deleted || !item.isDeleted, "deleted things are listed where they are asked for");
    if (item.data.size <= mostBytes)
      characters += CheckRow(list.rows.row(row), list.rows.captions.size(), item);
  }
}

void CheckLines(const Explorer& explorer, const Findings& found) {
  const std::string lines = explorer.lines(found, Messages());
  Check(lines.empty() || lines.ends_with('\n'), "information is whole lines");
  if (explorer.status) Check(IsUtf8(explorer.status(found)), "a figure is UTF-8");
}

void CheckClaims(const Explorer& explorer, const Dump& dump, const Findings& found) {
  if (!explorer.claim) return;
  explorer.claim(dump, found, [&](const Claim& claim) {
    Check(std::ranges::find(explorer.kinds, claim.kind) != explorer.kinds.end(), "a claim is of its kinds");
    Check(claim.sure != Sureness::Unknown, "a claim is sure");
  });
}

void CheckRegions(const DumpMap& map, const Fullflash& image) {
  Offset end = 0;
  for (const Claim& region : map.regions) {
    Check(region.offset == end && region.size > 0, "a region begins where the one before it ends");
    Check((region.kind == &map::unknown) == (region.sure == Sureness::Unknown), "what is known is sure");
    Check(map.Within(region.offset, region.size).size() == 1, "a region is found where it lies");
    Check(!LabelOf(map, region.offset, region.size).empty(), "bytes of the image have a label");
    end = region.End();
  }
  Check(end == std::ssize(image.ff()), "the regions make up the whole image");
  Check(!LabelOf(map, 0, end).empty(), "the image has a label");
  Check(MapRows(map, image).All().rows.size() == map.regions.size(), "a region has a row");
}

}  // namespace

void Run(Bytes data) try {
  Dump dump{ImageOf(data), {}, {}};
  if (!dump.image.IsOpen()) return;
  dump.info = Identify(dump.image);
  CheckInformation(dump.image, dump.info);
  std::optional<Findings> last;
  const DumpMap map = MapDump(dump, [&](const Explorer& explorer) -> const Findings& {
    const Findings& found = last.emplace(explorer.search(dump, noProgress));
    List(explorer, dump, found, true);
    if (explorer.hasDeleted) List(explorer, dump, found, false);
    CheckLines(explorer, found);
    CheckClaims(explorer, dump, found);
    return found;
  });
  CheckRegions(map, dump.image);
} catch (const std::length_error&) {
  return;  // an explorer found more than its limit
}

}  // namespace tarvelo::fuzz
