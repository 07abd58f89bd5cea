#include "pictures/pictures_explorer.h"

#include <algorithm>
#include <map>
#include <memory>

#include "pictures/picture_files.h"
#include "pictures/picture_search.h"
#include "pictures/picture_table.h"

namespace tarvelo {
namespace {

const PictureList& ListOf(const Findings& found) { return found.As<PictureList>(); }

const SieveForm* SieveOf(const Dump& dump) { return &TableSieve(dump.image); }

Findings Search(const Dump& dump, Progress& progress) {
  return Findings(GetP(dump.image, progress, dump.marks));
}

std::size_t Count(const Findings& found) { return ListOf(found).pictures.size(); }

Item ItemOf(const Findings& found, std::size_t record) {
  const Picture& picture = ListOf(found).pictures[record];
  return {.number = picture.number,
          .data = {picture.data, picture.size},
          .entry = {picture.entry, Picture::entrySize}};
}

TableRows Rows(const Dump&, const Findings& found, const Messages& messages, CellRoom) {
  return PictureRows(ListOf(found), messages);
}

std::string Lines(const Findings& found, const Messages& messages) {
  return PictureInformation(ListOf(found), messages);
}

std::string Status(const Findings& found) {
  const PictureList& list = ListOf(found);
  return std::to_string(list.pictures.size()) + " / " + std::to_string(list.outsideCount);
}

// --- claims ---

constexpr ClaimGroup pictures{Text::MapPicture, {}, 0x009E73};

constexpr ClaimKind table{"picture-table", Text::MapPictureTable, {}, 90, &pictures};
constexpr ClaimKind header{"picture-header", Text::MapPicture, Text::MapHeader, 100, &pictures};
constexpr ClaimKind pixels{"picture", Text::MapPicture, {}, 110, &pictures};
constexpr const ClaimKind* kinds[] = {&pixels, &table, &header};

constexpr std::size_t mostClaimed = 0x10000;  // a malformed image may have a picture for every four bytes

struct Extent {
  Offset begin = 0, end = 0;
  Offset entries = 0, inside = 0;

  // A table is sound if it has at least 8 entries and nine tenths of them point into the image.
  [[nodiscard]] Sureness Sure() const {
    const bool isSound = entries >= 8 && inside * 10 >= entries * 9;
    return isSound ? Sureness::Certain : Sureness::Guessed;
  }
};

// Whether an entry is a real end of a table, not just erased bytes behind it.
bool EndsTable(const Fullflash& image, Offset entry) {
  if (entry > std::ssize(image.ff()) - Picture::entrySize) return false;
  const Bytes bytes = image.Region(entry, Picture::entrySize);
  const bool isErased = std::ranges::count(bytes, 0xFF) == Picture::entrySize;
  return (bytes[0] == 255 || bytes[1] == 0) && !isErased;
}

std::map<int, Extent> Tables(std::span<const Picture> list, Offset imageSize) {
  std::map<int, Extent> tables;
  for (const Picture& picture : list) {
    if (picture.outside) continue;
    Extent& extent = tables.try_emplace(picture.table, Extent{picture.entry}).first->second;
    extent.end = picture.entry + Picture::entrySize;
    ++extent.entries;
    extent.inside += picture.data >= 0 && picture.data + picture.size <= imageSize;
  }
  return tables;
}

void ClaimPictures(const Dump& dump, const Findings& found, const TakeClaim& take) {
  const PictureList& all = ListOf(found);
  const std::span list(all.pictures.data(), std::min(mostClaimed, all.pictures.size()));
  const std::map<int, Extent> tables = Tables(list, std::ssize(dump.image.ff()));
  for (const auto& [number, extent] : tables) {
    const Offset end = EndsTable(dump.image, extent.end) ? extent.end + Picture::entrySize : extent.end;
    take({extent.begin, end - extent.begin, &table, extent.Sure(), number});
  }
  for (const Picture& picture : list) {
    if (picture.outside)
      take({picture.entry, Picture::entrySize, &header, Sureness::Guessed, picture.number, picture.entry});
    const Sureness sure = picture.outside ? Sureness::Guessed : tables.at(picture.table).Sure();
    take({picture.data, picture.size, &pixels, sure, picture.number, picture.entry});
  }
}

// --- files ---

constexpr std::string_view formats[] = {"bmp", "png"};

ExportItem Write(const Dump& dump, const Findings& found, const ExportTarget& target) {
  const auto format = target.format == "png" ? PictureFormat::Png : PictureFormat::Bmp;
  const auto decoder = std::make_shared<PictureDecoder>(dump.image.ff());
  return [&list = ListOf(found), target, format, decoder](std::size_t record) -> Exported {
    const Picture& picture = list.pictures[record];
    const auto file = SavePicture(*decoder, picture, list.colourSeen, target.folder, target.stem, format);
    if (file) return {*file, {}};
    return {{}, "picture " + std::to_string(picture.number) + " has no pixels: it can't be a PNG"};
  };
}

}  // namespace

constinit const Explorer picturesExplorer{
    .key = "pictures",
    .about = "pictures",
    .letter = 'P',
    .name = Text::Pictures,
    .help = Text::HelpPictures,
    .place = 5,
    .sieve = SieveOf,
    .search = Search,
    .count = Count,
    .item = ItemOf,
    .captions = PictureCaptions,
    .rows = Rows,
    .lines = Lines,
    .statusPanel = 6,
    .status = Status,
    .statusTip = Text::TipPictureCounts,
    .kinds = kinds,
    .claim = ClaimPictures,
    .files = ExplorerFiles{.folder = "BMP", .formats = formats, .write = Write},
};

}  // namespace tarvelo
