#include "document/map_table.h"

#include <algorithm>
#include <array>
#include <set>

#include "core/notation.h"
#include "resources/texts.h"

namespace tarvelo {
namespace {

void AppendPart(std::string& text, std::optional<Text> part, const Messages& messages) {
  if (part) text.append(" (").append(messages.Msg(*part)).append(")");
}

// As many digits as the column's last value has, but at least six.
std::string AlignedHex(std::int64_t value, std::int64_t last) {
  return WholeHex(value, std::max<std::size_t>(6, Hex(last).size()));
}

std::string SurenessOf(Sureness sure, const Messages& messages) {
  switch (sure) {
    case Sureness::Certain: return std::string(messages.Msg(Text::SureCertain));
    case Sureness::Likely: return std::string(messages.Msg(Text::SureLikely));
    case Sureness::Guessed: return std::string(messages.Msg(Text::SureGuessed));
    case Sureness::Unknown: break;
  }
  return {};
}

}  // namespace

std::string_view KeyOf(Sureness sure) {
  return std::array{"certain", "likely", "guessed", ""}[static_cast<std::size_t>(sure)];
}

std::string NameOf(const ClaimGroup& group, const Messages& messages) {
  std::string text(messages.Msg(group.name));
  AppendPart(text, group.part, messages);
  return text;
}

std::string WhatOf(const Claim& region, const Messages& messages) {
  const ClaimKind& kind = *region.kind;
  std::string text(messages.Msg(kind.name));
  if (region.number >= 0) {
    text += ' ';
    text += kind.isNumberHex ? HexOfByte(static_cast<std::uint8_t>(region.number))
                             : std::to_string(region.number);
  }
  AppendPart(text, kind.part, messages);
  return text;
}

std::string LabelOf(const DumpMap& map, Offset offset, Offset size, const Messages& messages) {
  constexpr std::size_t most = 3;
  std::set<std::string> told;
  std::string text;
  for (const Claim& region : map.Within(offset, size)) {
    const std::string what = WhatOf(region, messages);
    if (told.contains(what)) continue;
    if (!text.empty()) text += ", ";
    if (told.size() == most) return text.append("...");
    told.insert(what);
    text += what;
  }
  return text;
}

TableRows MapRows(const DumpMap& map, const Fullflash& image, const Messages& messages) {
  return {
      Captions(messages, {Text::ColumnOffset, Text::ColumnAddress, Text::ColumnSize, Text::ColumnWhat,
                          Text::ColumnSure}),
      map.regions.size(), [&map, &image, messages](std::size_t row) -> Table::Row {
        const Claim& region = map.regions[row];
        const auto last = static_cast<Offset>(image.ffEnd());
        return {{AlignedHex(region.offset, last),
                 AlignedHex(image.PhoneAddress(region.offset), image.PhoneAddress(last)),
                 WholeDecimal(region.size, 8), WhatOf(region, messages), SurenessOf(region.sure, messages)}};
      }};
}

}  // namespace tarvelo
