#include "eeprom/block_table.h"

#include "core/notation.h"

namespace tarvelo {
namespace {

std::string HexColumn(std::int32_t offset) { return PadZero(Hex(static_cast<std::uint32_t>(offset)), 6); }

std::string Column(int value, std::size_t width) { return PadSpace(std::to_string(value), width); }

Table::Row RowOf(const EepromBlockRecord& record, const DescriptionOf& description) {
  return {{Column(record.Number, 4), description(record.Number), HexColumn(record.HeaderPos),
           Column(record.V, 2), HexColumn(record.DataOffset), Column(record.Size, 4),
           record.HasViewer ? "*" : "", record.IsDeleted() ? "-" : ""},
          record.IsDeleted()};
}

}  // namespace

std::vector<std::size_t> ShownRecords(const BlockStore& store, bool showDeleted) {
  std::vector<std::size_t> shown;
  for (std::size_t i = 0; i < store.records.size(); ++i)
    if (showDeleted || !store.records[i].IsDeleted()) shown.push_back(i);
  return shown;
}

std::vector<std::string> BlockCaptions(const Messages& messages) {
  return Captions(messages, {468, 260, "EIT", "V", 262, 261, "i", "-"});
}

Table ShowEE(const BlockStore& store, bool showDeleted, const DescriptionOf& description,
             const Messages& messages) {
  Table table{BlockCaptions(messages), {}};
  for (const std::size_t i : ShownRecords(store, showDeleted))
    table.rows.push_back(RowOf(store.records[i], description));
  return table;
}

std::string BlockInformation(const BlockStore& store, const Messages& messages) {
  std::string text;
  if (store.BlockCount() < 1) return text;
  text.append(messages.Msg(17)).append(std::to_string(store.LiveCount())).append("\n");
  text.append(messages.Msg(18)).append(std::to_string(store.DeletedCount)).append("\n");
  return text;
}

std::string BlockStatus(const BlockStore& store) {
  if (store.BlockCount() < 1) return "";
  return std::to_string(store.LiveCount()) + " / " + std::to_string(store.DeletedCount);
}

}  // namespace tarvelo
