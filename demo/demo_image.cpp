#include "demo/demo_image.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "demo/demo_code.h"
#include "demo/demo_eeprom.h"
#include "demo/demo_files.h"
#include "demo/demo_program.h"
#include "demo/demo_ringtones.h"
#include "demo/demo_t9.h"
#include "demo/demo_tables.h"
#include "demo/demo_texts.h"

namespace tarvelo {
namespace {

enum class Part {
  code,
  program,  // of the service menu
  header,
  firstTable,   // of pictures
  secondTable,  // within 0x50000 bytes of the first one
  pictures,     // the data of both tables
  standalone,   // pictures without a table
  ringtones,
  texts,
  t9,
  oldSector,  // where blocks were before the EEPROM moved
  files,      // the units of the flash file system
  fileMap,    // the firmware's map of them
  eeprom,
};

struct Place {
  Part part;
  Area area;
  std::size_t moved = 0;  // bytes since the first version
};

// Unlisted bytes stay erased.
constexpr std::size_t smallSize = 0x800000;
constexpr std::array smallMap{
    Place{Part::code, {0x000000, 0x07FF00}},      Place{Part::header, {0x07FF00, 0x080000}},
    Place{Part::code, {0x080000, 0x100000}},      Place{Part::code, {0x120000, 0x1E0000}},
    Place{Part::code, {0x1F0000, 0x200000}},      Place{Part::firstTable, {0x200000, 0x201000}},
    Place{Part::code, {0x201000, 0x220000}},      Place{Part::secondTable, {0x220000, 0x221000}},
    Place{Part::code, {0x221000, 0x280000}},      Place{Part::pictures, {0x280000, 0x300000}},
    Place{Part::code, {0x300000, 0x310000}},      Place{Part::standalone, {0x310000, 0x314000}},
    Place{Part::program, {0x314000, 0x314400}},   Place{Part::code, {0x314400, 0x330000}},
    Place{Part::ringtones, {0x330000, 0x340000}}, Place{Part::texts, {0x340000, 0x350000}},
    Place{Part::code, {0x350000, 0x3F0000}},      Place{Part::oldSector, {0x3F0000, 0x400000}},
    Place{Part::t9, {0x400000, 0x440000}},        Place{Part::code, {0x500000, 0x590000}},
    Place{Part::fileMap, {0x590000, 0x590100}},   Place{Part::files, {0x5A0000, 0x5E0000}},
    Place{Part::code, {0x600000, 0x6E0000}},      Place{Part::code, {0x6F0000, 0x750000}},
    Place{Part::eeprom, {0x760000, 0x800000}},
};

// In the second version of the firmware, what lies here has moved.
constexpr Area movedArea{0x200000, 0x3F0000};
constexpr std::size_t movedBy = 0x2400;

constexpr auto secondMap = [] {
  auto map = smallMap;
  for (Place& place : map) {
    if (place.area.begin < movedArea.begin || place.area.begin >= movedArea.end) continue;
    place.moved = movedBy;
    place.area = {place.area.begin + movedBy, std::min(place.area.end + movedBy, movedArea.end)};
  }
  return map;
}();

constexpr std::size_t largeSize = 0x2000000;
constexpr std::array largeMap{
    Place{Part::code, {0x0000000, 0x008FC00}},      Place{Part::header, {0x008FC00, 0x008FD00}},
    Place{Part::code, {0x008FD00, 0x0200000}},      Place{Part::code, {0x0300000, 0x05A0000}},
    Place{Part::code, {0x05B0000, 0x0800000}},      Place{Part::firstTable, {0x0800000, 0x0801000}},
    Place{Part::code, {0x0801000, 0x0830000}},      Place{Part::secondTable, {0x0830000, 0x0831000}},
    Place{Part::code, {0x0831000, 0x0900000}},      Place{Part::pictures, {0x0900000, 0x0980000}},
    Place{Part::code, {0x0980000, 0x0A00000}},      Place{Part::standalone, {0x0A00000, 0x0A04000}},
    Place{Part::code, {0x0A04000, 0x0A80000}},      Place{Part::ringtones, {0x0A80000, 0x0A90000}},
    Place{Part::texts, {0x0A90000, 0x0AA0000}},     Place{Part::code, {0x0AA0000, 0x0BF0000}},
    Place{Part::oldSector, {0x0BF0000, 0x0C00000}}, Place{Part::code, {0x0C00000, 0x1000000}},
    Place{Part::code, {0x1400000, 0x1800000}},      Place{Part::fileMap, {0x1800000, 0x1800100}},
    Place{Part::files, {0x1820000, 0x18A0000}},     Place{Part::code, {0x1900000, 0x1A00000}},
    Place{Part::eeprom, {0x1F60000, 0x2000000}},
};

constexpr bool InOrder(const auto& map, std::size_t size) {
  std::size_t end = 0;
  for (const Place& place : map) {
    if (place.area.begin < end || place.area.end <= place.area.begin) return false;
    end = place.area.end;
  }
  return end <= size;
}
static_assert(InOrder(smallMap, smallSize));
static_assert(InOrder(secondMap, smallSize));
static_assert(InOrder(largeMap, largeSize));

// The texts that identify the phone and its firmware, up to 15 bytes each.
struct HeaderTexts {
  std::string_view model;
  std::string_view second;  // shown behind the version
  std::string_view date;    // day.month.year
  std::string_view time;    // hour:minute:second
  std::uint8_t version = 0;
};

constexpr HeaderTexts smallHeader{"C55", "Tarvelo demo", "14.11.2002", "10:22:31", 0x24};
constexpr HeaderTexts secondHeader{"C55", "Tarvelo demo", "06.03.2003", "09:41:07", 0x25};
constexpr HeaderTexts largeHeader{"S55", "Tarvelo large", "21.05.2003", "16:05:09", 0x91};

constexpr Area Find(const auto& map, Part part) {
  for (const Place& place : map)
    if (place.part == part) return place.area;
  return {};
}

// Fills the header, a page of 0x100 bytes.
void WriteHeader(Flash& flash, Area header, const HeaderTexts& texts) {
  const std::size_t page = header.begin;
  PutFill(flash.bytes, page, header.end - page, 0);
  PutByte(flash.bytes, page + 0x50, texts.version);
  PutText(flash.bytes, page + 0x60, texts.second);
  PutText(flash.bytes, page + 0x70, texts.model);
  PutText(flash.bytes, page + 0x80, "SIEMENS");
  PutText(flash.bytes, page + 0x90, texts.date);
  PutText(flash.bytes, page + 0xA0, texts.time);
}

ByteBuffer Build(const auto& map, std::size_t size, const HeaderTexts& header, bool isLater = false) {
  Flash flash(size);
  for (const Place& place : map)
    if (place.part == Part::code)
      WriteCode(flash, place.area,
                {.seed = static_cast<std::uint32_t>(place.area.begin - place.moved), .isLater = isLater});
  WriteHeader(flash, Find(map, Part::header), header);
  const Area t9 = Find(map, Part::t9);
  if (t9.end != 0) WriteT9(flash, t9);

  const bool small = flash.PageMode();
  const PictureSet pictures = EncodePictures(small);
  AreaWriter data(flash, Find(map, Part::pictures));
  WritePictureTable(flash, Find(map, Part::firstTable), pictures.first,
                    small ? TableEnd::noHeight : TableEnd::reservedByte, data);
  WritePictureTable(flash, Find(map, Part::secondTable), pictures.second, TableEnd::fullWidth, data);
  WriteStandalonePictures(flash, Find(map, Part::standalone), pictures.standalone);

  WriteRingtones(flash, Find(map, Part::ringtones));
  WriteTexts(flash, Find(map, Part::texts));
  WriteFiles(flash, Find(map, Part::files), Find(map, Part::fileMap));
  WriteEeprom(flash, Find(map, Part::eeprom), Find(map, Part::oldSector));
  const Area program = Find(map, Part::program);
  if (program.end != 0)
    WriteProgram(flash, program,
                 {.pictures = Find(map, Part::firstTable).begin,
                  .ringtones = Find(map, Part::ringtones).begin,
                  .texts = Find(map, Part::texts),
                  .isLater = isLater});
  return std::move(flash.bytes);
}

}  // namespace

std::vector<std::uint8_t> DemoImage(DemoKind kind) {
  switch (kind) {
    case DemoKind::First: return Build(smallMap, smallSize, smallHeader);
    case DemoKind::Second: return Build(secondMap, smallSize, secondHeader, true);
    case DemoKind::Large: return Build(largeMap, largeSize, largeHeader);
  }
  return {};
}

}  // namespace tarvelo
