#include "eeprom/block_table.h"

#include "core/notation.h"
#include "resources/texts.h"

namespace tarvelo {
namespace {

Table::Row RowOf(const EepromBlockRecord& record, const Descriptions& descriptions) {
  return {{DecimalColumn(record.Number, 4), Describe(descriptions, record.Number),
           HexColumn(record.HeaderPos), DecimalColumn(record.V, 2), HexColumn(record.DataOffset),
           DecimalColumn(record.Size, 4), record.HasViewer ? "*" : "", record.IsDeleted() ? "-" : ""},
          record.IsDeleted()};
}

}  // namespace

std::vector<std::string> BlockCaptions(const Messages& messages) {
  return Captions(messages, {Text::ColumnBlock, Text::ColumnDescription, "EIT", "V", Text::ColumnOffset,
                             Text::ColumnSize, "i", "-"});
}

TableRows ShowEE(const BlockStore& store, const Descriptions& descriptions, const Messages& messages) {
  return {BlockCaptions(messages), store.records.size(),
          [&store, &descriptions](std::size_t record) { return RowOf(store.records[record], descriptions); }};
}

std::string BlockInformation(const BlockStore& store, const Messages& messages) {
  std::string text;
  if (store.BlockCount() < 1) return text;
  text.append(messages.Msg(Text::EepromBlockCountLabel))
      .append(std::to_string(store.LiveCount()))
      .append("\n");
  text.append(messages.Msg(Text::DeletedBlockCountLabel))
      .append(std::to_string(store.DeletedCount))
      .append("\n");
  return text;
}

std::string BlockStatus(const BlockStore& store) {
  if (store.BlockCount() < 1) return "";
  return std::to_string(store.LiveCount()) + " / " + std::to_string(store.DeletedCount);
}

}  // namespace tarvelo
