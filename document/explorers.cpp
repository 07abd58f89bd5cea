#include "document/explorers.h"

#include <algorithm>
#include <array>
#include <utility>

#include "code/functions_explorer.h"
#include "eeprom/eeprom_explorer.h"
#include "files/files_explorer.h"
#include "pictures/pictures_explorer.h"
#include "ringtones/ringtones_explorer.h"

namespace tarvelo {
namespace {

constexpr std::array all{
    &eepromExplorer, &picturesExplorer, &ringtonesExplorer, &filesExplorer, &functionsExplorer,
};

std::vector<std::size_t> LiveRecords(const Explorer& explorer, const Findings& found) {
  std::vector<std::size_t> live;
  for (std::size_t record = 0; record < explorer.count(found); ++record)
    if (!explorer.item(found, record).isDeleted) live.push_back(record);
  return live;
}

}  // namespace

std::span<const Explorer* const> Explorers() { return all; }

const Explorer* FindExplorer(std::string_view key) {
  const auto found = std::ranges::find(all, key, &Explorer::key);
  return found == all.end() ? nullptr : *found;
}

Listing ListOf(const Explorer& explorer, const Dump& dump, const Findings& found, bool deleted,
               const Messages& messages, CellRoom room) {
  TableRows rows = explorer.rows(dump, found, messages, room);
  std::vector<std::size_t> shown;
  if (explorer.hasDeleted && !deleted) shown = LiveRecords(explorer, found);
  const bool isWhole = shown.size() == rows.count || !explorer.hasDeleted || deleted;
  const std::size_t count = isWhole ? rows.count : shown.size();
  if (isWhole) shown.clear();
  auto row = [found, isWhole, shown, make = std::move(rows.row)](std::size_t i) {
    return make(isWhole ? i : shown[i]);
  };
  return {{std::move(rows.captions), count, std::move(row)}, std::move(shown)};
}

}  // namespace tarvelo
