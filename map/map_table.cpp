#include "map/map_table.h"

#include <algorithm>
#include <array>
#include <set>

#include "core/notation.h"

namespace tarvelo {
namespace {

struct Name {
  std::string_view key;
  int subject;   // the message of what it belongs to, its number follows
  int part = 0;  // the message of what of that it is
};

constexpr std::array<Name, mapKinds> names{{
    {"firmware-header", 440},
    {"t9", 467},
    {"t9-free", 467, 455},
    {"empty-block", 441},
    {"eeprom-header", 201, 451},
    {"eeprom-deleted-header", 201, 452},
    {"eeprom-data", 201},
    {"ringtone-table", 442},
    {"ringtone-file", 443, 453},
    {"picture-table", 444},
    {"picture-header", 445, 451},
    {"picture", 445},
    {"eeprom-deleted-data", 201, 252},
    {"erased", 446},
    {"ringtone-pointer", 443, 454},
    {"melody", 443},
    {"text", 447},
    {"code", 448},
    {"filling", 449},
    {"unknown", 450},
}};

const Name& NameOf(MapKind kind) { return names[static_cast<std::size_t>(kind)]; }

bool IsRingtone(MapKind kind) {
  return kind == MapKind::RingtoneFile || kind == MapKind::RingtonePointer || kind == MapKind::Melody;
}

// As many digits as the last value of the column has.
std::string HexColumn(std::uint32_t value, std::uint32_t last) {
  return WholeHex(value, std::max<std::size_t>(6, Hex(last).size()));
}

std::string SurenessOf(const MapRegion& region, const Messages& messages) {
  constexpr int certain = 456;  // the others follow it
  if (region.sure == Sureness::Unknown) return {};
  return std::string(messages.Msg(certain + static_cast<int>(region.sure)));
}

}  // namespace

std::string_view KeyOf(MapKind kind) { return NameOf(kind).key; }

std::string_view KeyOf(Sureness sure) {
  return std::array{"certain", "likely", "guessed", ""}[static_cast<std::size_t>(sure)];
}

std::string WhatOf(const MapRegion& region, const Messages& messages) {
  const auto& [key, subject, part] = NameOf(region.kind);
  std::string text(messages.Msg(subject));
  if (region.number >= 0) {
    text += ' ';
    // Ringtones are numbered as in their list.
    text += IsRingtone(region.kind) ? HexOfByte(static_cast<std::uint8_t>(region.number))
                                    : std::to_string(region.number);
  }
  if (part) text.append(" (").append(messages.Msg(part)).append(")");
  return text;
}

std::string LabelOf(const DumpMap& map, Offset offset, Offset size, const Messages& messages) {
  constexpr std::size_t most = 3;
  std::set<std::string> told;
  std::string text;
  for (const MapRegion& region : map.Within(offset, size)) {
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
  return {Captions(messages, {262, 465, 261, 459, 460}), map.regions.size(),
          [&map, &image, messages](std::size_t row) -> Table::Row {
            const MapRegion& region = map.regions[row];
            const auto last = static_cast<Offset>(image.ffEnd());
            return {{HexColumn(static_cast<std::uint32_t>(region.offset), static_cast<std::uint32_t>(last)),
                     HexColumn(image.PhoneAddress(region.offset), image.PhoneAddress(last)),
                     WholeDecimal(region.size, 8), WhatOf(region, messages), SurenessOf(region, messages)}};
          }};
}

}  // namespace tarvelo
