#include "map/map_table.h"

#include <algorithm>
#include <array>
#include <set>

#include "core/notation.h"

namespace tarvelo {
namespace {

struct Name {
  std::string_view key;
  std::string_view subject;
  std::string_view part;  // what of the numbered subject it is
};

constexpr std::array<Name, mapKinds> names{{
    {"firmware-header", "firmware header", ""},
    {"t9", "T9", ""},
    {"t9-free", "T9 (free)", ""},
    {"empty-block", "empty blocks", ""},
    {"eeprom-header", "EEPROM", " (header)"},
    {"eeprom-deleted-header", "EEPROM", " (deleted, header)"},
    {"eeprom-data", "EEPROM", ""},
    {"ringtone-table", "ringtone table", ""},
    {"ringtone-file", "ringtone", " (file)"},
    {"picture-table", "picture table", ""},
    {"picture-header", "picture", " (header)"},
    {"picture", "picture", ""},
    {"eeprom-deleted-data", "EEPROM", " (deleted)"},
    {"erased", "erased", ""},
    {"ringtone-pointer", "ringtone", " (pointer)"},
    {"melody", "ringtone", ""},
    {"text", "text", ""},
    {"code", "code", ""},
    {"filling", "filling", ""},
    {"unknown", "unknown", ""},
}};

const Name& NameOf(MapKind kind) { return names[static_cast<std::size_t>(kind)]; }

bool IsRingtone(MapKind kind) {
  return kind == MapKind::RingtoneFile || kind == MapKind::RingtonePointer || kind == MapKind::Melody;
}

// As many digits as the last value of the column has.
std::string HexColumn(std::uint32_t value, std::uint32_t last) {
  const std::string digits = Hex(value);
  const std::size_t width = std::max({std::size_t{6}, Hex(last).size(), digits.size()});
  return std::string(width - digits.size(), '0') + digits;
}

std::string SizeColumn(Offset size) {
  constexpr std::size_t width = 8;
  const std::string digits = std::to_string(size);
  return std::string(width - std::min(width, digits.size()), ' ') + digits;
}

}  // namespace

std::string_view KeyOf(MapKind kind) { return NameOf(kind).key; }

std::string_view KeyOf(Sureness sure) {
  return std::array{"certain", "likely", "guessed", ""}[static_cast<std::size_t>(sure)];
}

std::string WhatOf(const MapRegion& region) {
  const Name& name = NameOf(region.kind);
  std::string text(name.subject);
  if (region.number < 0) return text;
  text += ' ';
  // Ringtones are numbered as in their list.
  text += IsRingtone(region.kind) ? HexOfByte(static_cast<std::uint8_t>(region.number))
                                  : std::to_string(region.number);
  return text.append(name.part);
}

std::string LabelOf(const DumpMap& map, Offset offset, Offset size) {
  constexpr std::size_t most = 3;
  std::set<std::string> told;
  std::string text;
  for (const MapRegion& region : map.Within(offset, size)) {
    const std::string what = WhatOf(region);
    if (told.contains(what)) continue;
    if (!text.empty()) text += ", ";
    if (told.size() == most) return text.append("...");
    told.insert(what);
    text += what;
  }
  return text;
}

TableRows MapRows(const DumpMap& map, const Fullflash& image) {
  return {{"Offset", "Address", "Size", "What", "Sure"},
          map.regions.size(),
          [&map, &image](std::size_t row) -> Table::Row {
            const MapRegion& region = map.regions[row];
            const auto last = static_cast<Offset>(image.ffEnd());
            return {{HexColumn(static_cast<std::uint32_t>(region.offset), static_cast<std::uint32_t>(last)),
                     HexColumn(image.PhoneAddress(region.offset), image.PhoneAddress(last)),
                     SizeColumn(region.size), WhatOf(region), std::string(KeyOf(region.sure))}};
          }};
}

}  // namespace tarvelo
