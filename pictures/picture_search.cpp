#include "pictures/picture_search.h"

#include <algorithm>
#include <optional>
#include <span>

#include "core/scan_run.h"
#include "pictures/colours.h"
#include "pictures/picture_data.h"

namespace tarvelo {
namespace {

constexpr int mostTables = 99;
constexpr Offset nextTableWithin = 0x50000;

// The first bytes of a table's first entry: width and height, the type with or without bit 7, then 0. Then
// the 0 of the second entry.
constexpr Probe pageModeSignature[] = {{.offset = 0, .value = 0x0404},
                                       {.offset = 2, .value = 0x0001, .mask = 0xFF7F},
                                       {.offset = 10, .value = 0, .mask = 0xFF00}};
constexpr Probe largeSignature[] = {{.offset = 0, .value = 0x3434},
                                    {.offset = 2, .value = 0x0088},
                                    {.offset = 10, .value = 0, .mask = 0xFF00}};

constexpr SieveForm pageModeTable{2, pageModeSignature};
constexpr SieveForm largeTable{2, largeSignature};

// The first bytes of a header outside the tables: width and height below 0x80, type 0x81, then 0.
constexpr Probe outsideHeader[] = {{.offset = 2, .value = 0x0081}, {.offset = 0, .value = 0, .mask = 0x8080}};

class Search {
 public:
  Search(const Fullflash& image, const SieveMarks& marks, Progress& progress)
      : image_(image),
        tables_(TableSieve(image), marks.Of(TableSieve(image))),
        end_(static_cast<Offset>(image.ff().size())),
        sizes_(image.ff()),
        progress_(progress, 0, end_) {}

  PictureList Run() {
    Offset position = 0;
    Offset lastTable = end_;
    for (int table = 1; table <= mostTables; ++table) {
      const auto start = FindTable(position, std::min(lastTable + nextTableWithin, end_ - 20));
      if (!start) break;
      lastTable = *start;
      list_.tables.push_back(*start);
      position = ReadTable(*start, table);
      if (!list_.colourSeen) {
        ListOutside(position);
        break;
      }
    }
    return std::move(list_);
  }

 private:
  // Calls take(position) for the matches at from .. last, step 2, until it returns true. Works in pieces and
  // reports progress between them.
  template <typename Take>
  void EachMatch(const Sieve& sieve, Offset from, Offset last, Take take) {
    ScanWithProgress(image_.ff(), sieve, 2, from, last, progress_, take);
  }

  std::optional<Offset> FindTable(Offset from, Offset last) {
    std::optional<Offset> found;
    EachMatch(tables_, from, last, [&](Offset p) {
      const bool hasSecondEntry = image_.Byte(p + 8) != 0 && image_.Byte(p + 9) != 0;
      if (hasSecondEntry) found = p;
      return hasSecondEntry;
    });
    return found;
  }

  // Lists the entries of a table. Returns the table's end.
  Offset ReadTable(Offset start, int table) {
    Offset p = start;
    for (int index = 0; p <= end_ - Picture::entrySize; p += Picture::entrySize, ++index) {
      Picture picture = ReadHeader(p);
      const bool isNextTable = p != start && picture.width == 4 && picture.height == 4 && picture.type == 1;
      if (picture.height == 0 || picture.width == 255 || image_.Byte(p + 3) != 0 || isNextTable) break;
      picture.table = static_cast<std::uint8_t>(table);
      picture.index = index;
      if (picture.data < 0) picture.data += 0x200000;  // an address below the base wraps on purpose
      Add(picture);
    }
    return p;
  }

  // Large numbers of pictures are counted before they are listed, so that the list, which may need more
  // memory than the image, never moves.
  void ListOutside(Offset from) {
    constexpr std::size_t few = 0x10000;
    const auto rest = ListHeaders(from, few);
    if (!rest) return;
    std::size_t count = 0;
    EachHeader(*rest, [&](const Picture&) {
      ++count;
      return false;
    });
    list_.pictures.reserve(list_.pictures.size() + count);
    ListHeaders(*rest, count + 1);
  }

  // Lists at most `most` headers from an offset on. Returns where more may follow, or nothing.
  std::optional<Offset> ListHeaders(Offset from, std::size_t most) {
    std::optional<Offset> rest;
    EachHeader(from, [&](Picture picture) {
      picture.outside = true;
      picture.table = 9;
      picture.index = list_.outsideCount++;
      Add(picture);
      if (--most == 0) rest = picture.entry + 2;
      return rest.has_value();
    });
    return rest;
  }

  template <typename Take>
  void EachHeader(Offset from, Take take) {
    EachMatch(Sieve(2, outsideHeader), from, end_ - Picture::entrySize, [&](Offset p) {
      const Picture picture = ReadHeader(p);
      if (picture.width >= 1 && picture.width <= 101 && picture.height >= 1 && picture.height <= 80 &&
          picture.data >= 1 && picture.data < end_)
        return take(picture);
      return false;
    });
  }

  [[nodiscard]] Picture ReadHeader(Offset p) const {
    Picture picture;
    picture.width = image_.Byte(p);
    picture.height = image_.Byte(p + 1);
    picture.type = image_.Byte(p + 2);
    picture.entry = static_cast<std::int32_t>(p);
    picture.data = image_.GetAdr(p + 4) - image_.LoadBase();  // below 2^31 in images of either kind
    return picture;
  }

  void Add(Picture picture) {
    const int bits = picture.BitsPerPixel();
    picture.number = static_cast<int>(list_.pictures.size());
    picture.size = sizes_.SizeP(picture.width, picture.height, bits, picture.data, picture.type);
    if (bits > 1) list_.colourSeen = true;
    list_.pictures.push_back(picture);
  }

  const Fullflash& image_;
  const Sieve tables_;
  const Offset end_;
  PictureDecoder sizes_;
  ProgressRun progress_;
  PictureList list_;
};

}  // namespace

const SieveForm& TableSieve(const Fullflash& image) { return image.PageMode() ? pageModeTable : largeTable; }

PictureList GetP(const Fullflash& image, Progress& progress, const SieveMarks& marks) {
  return Search(image, marks, progress).Run();
}

}  // namespace tarvelo
