// A small volume, and what is found in one, as short lines.
#pragma once

#include <stdexcept>
#include <string>
#include <vector>

#include "files/file_content.h"
#include "files/file_search.h"
#include "files/file_table.h"
#include "files/file_text.h"
#include "files/volume_builder.h"

namespace tarvelo {

inline constexpr std::size_t volumeSize = 0x400000;
inline constexpr std::size_t mapAt = 0x12346;
inline constexpr std::size_t firstUnit = 0x100000;

using Lines = std::vector<std::string>;

// A line for each entry: number, path, size, pieces, mark; for folders without the size.
inline Lines Listed(const Fullflash& image) {
  const FileList list = FindFiles(image, noProgress);
  const TableRows rows = FileRows(list, image, Messages(), 0x10000, false);
  Lines lines;
  for (std::size_t i = 0; i < rows.count; ++i) {
    const std::vector<std::string> cells = rows.row(i).cells;
    std::string line = cells[0];
    for (const std::size_t column : {1, 2, 5, 7})
      if (!cells[column].empty()) line += " " + cells[column];
    lines.push_back(line);
  }
  return lines;
}

inline std::string ContentAt(const Fullflash& image, const std::string& path) {
  const FileList list = FindFiles(image, noProgress);
  for (const FileEntry& entry : list.entries)
    if (PathOf(image, list, entry) == path) {
      const auto bytes = ContentOf(image, list, entry);
      return {bytes.begin(), bytes.end()};
    }
  return "no such file";
}

inline constexpr std::uint8_t gone = VolumeBuilder::deleted;

// Root 6: folder 20 with file 22 of pieces 22, 24, 26; file 30.
struct Volume {
  explicit Volume() : image(volumeSize), files(image, "FFS") {
    for (const std::size_t unit : {firstUnit, firstUnit + 0x10000}) files.Unit(unit);
    files.Folder(0, {.number = 6}, {20, 30});
    files.Folder(0, {.number = 20, .name = "Pics"}, {22});
    files.File(1, {.number = 22, .parent = 20, .name = "a.bmp", .next = 24}, "12345");
    files.File(0, {.number = 24, .next = 26}, "678");
    files.File(1, {.number = 26}, "90");
    files.File(1, {.number = 30, .name = "b.txt"}, "text");
  }

  // The offset of the live slot of a record.
  [[nodiscard]] std::size_t SlotOf(int number) const {
    for (std::size_t unit = firstUnit; unit < firstUnit + 0x20000; unit += 0x10000)
      for (std::size_t slot = unit + 0x10000 - 12; image[slot] != 0xFF; slot -= 12)
        if (image[slot] == 0xFC && image[slot + 8] + 256 * image[slot + 9] == number) return slot;
    throw std::out_of_range("no such record");
  }
  // The offset of a record's bytes.
  [[nodiscard]] std::size_t BytesOf(int number) const {
    const std::size_t slot = SlotOf(number);
    return image[slot + 4] + 0x100u * image[slot + 5] + 0x10000u * image[slot + 6] - 0xC00000;
  }
  void Remove(int number) { image.Byte(SlotOf(number), 0xE0); }
  // Writes a map without which no unit is found.
  void MapAlone() {
    files.Map(mapAt);
    for (const std::size_t unit : {firstUnit, firstUnit + 0x10000}) image.Word(unit + 0x8E, 0);
  }

  ImageBuilder image;
  VolumeBuilder files;
};

}  // namespace tarvelo
