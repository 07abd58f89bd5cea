#include "map/dump_map.h"

#include <algorithm>
#include <map>

#include "map/claims.h"
#include "map/guesses.h"
#include "media/melody.h"
#include "media/picture_search.h"
#include "media/ringtone_search.h"
#include "text/decoders.h"

namespace tarvelo {
namespace {

constexpr Offset blockSize = 0x10000;
constexpr Offset headerSize = 0x100;
constexpr Offset entrySize = 8;
constexpr int recordSize = 4;  // of melodies
constexpr std::size_t mostPictures = 0x10000;

class Mapper {
 public:
  explicit Mapper(const Fullflash& image)
      : image_(image), size_(static_cast<Offset>(image.ff().size())), claims_(size_) {}

  void ClaimFirmware(const Identification& info);
  void ClaimErased();
  void ClaimBlocks(const BlockStore& store);
  void ClaimPictures(const PictureList& list);
  void ClaimRingtones(const RingtoneList& list);

  std::vector<MapRegion> Regions() && {
    const std::vector<MapRegion> regions = std::move(claims_).Settle();
    return Guess(image_.ff(), regions, image_.PageMode());
  }

 private:
  struct PictureTable {
    Offset begin = 0, end = 0;
    Offset entries = 0, inside = 0;

    [[nodiscard]] Sureness Sure() const {
      const bool isSound = entries >= 8 && inside * 10 >= entries * 9;
      return isSound ? Sureness::Certain : Sureness::Guessed;
    }
  };

  [[nodiscard]] bool EndsPictureTable(Offset entry) const;
  [[nodiscard]] std::map<int, PictureTable> Tables(std::span<const Picture> pictures) const;
  void ClaimRingtone(const Ringtone& ringtone);

  const Fullflash& image_;
  const Offset size_;
  Claims claims_;
};

void Mapper::ClaimFirmware(const Identification& info) {
  // In images of more than 16 MiB SigPos may have lost the upper bits of where the signature is.
  if (info.SigPos && GetStr(image_.ff(), *info.SigPos + 0x80) == u"SIEMENS")
    claims_.Add({*info.SigPos, headerSize, MapKind::FirmwareHeader, Sureness::Certain});
  if (!info.t9) return;
  const Offset free = info.t9->T9Free;
  claims_.Add({info.t9->T9Base, free - info.t9->T9Base, MapKind::T9, Sureness::Certain});
  claims_.Add({free, info.t9->Empty(), MapKind::T9Free, Sureness::Certain});
}

void Mapper::ClaimErased() {
  for (const Stretch& run : ErasedRuns(image_.ff())) {
    claims_.Add({run.begin, run.end - run.begin, MapKind::Erased, Sureness::Likely});
    const Offset first = (run.begin + blockSize - 1) / blockSize * blockSize;
    const Offset end = run.end / blockSize * blockSize;
    if (first < end) claims_.Add({first, end - first, MapKind::EmptyBlock, Sureness::Certain});
  }
}

void Mapper::ClaimBlocks(const BlockStore& store) {
  for (const EepromBlockRecord& block : store.records) {
    const bool isDeleted = block.IsDeleted();
    claims_.Add({block.HeaderPos, blockHeaderLength,
                 isDeleted ? MapKind::EepromDeletedHeader : MapKind::EepromHeader, Sureness::Certain,
                 block.Number, block.HeaderPos});
    claims_.Add({block.DataOffset, block.Size, isDeleted ? MapKind::EepromDeletedData : MapKind::EepromData,
                 isDeleted ? Sureness::Likely : Sureness::Certain, block.Number, block.HeaderPos});
  }
}

// Whether an entry is one that a firmware ends its table with: not just the erased bytes behind it.
bool Mapper::EndsPictureTable(Offset entry) const {
  if (entry > size_ - entrySize) return false;
  const Bytes bytes = image_.Region(entry, entrySize);
  const bool isErased = std::ranges::count(bytes, 0xFF) == entrySize;
  return (bytes[0] == 255 || bytes[1] == 0) && !isErased;
}

std::map<int, Mapper::PictureTable> Mapper::Tables(std::span<const Picture> pictures) const {
  std::map<int, PictureTable> tables;
  for (const Picture& picture : pictures) {
    if (picture.outside) continue;
    PictureTable& table = tables.try_emplace(picture.table, PictureTable{picture.entry}).first->second;
    table.end = picture.entry + entrySize;
    ++table.entries;
    table.inside += picture.data >= 0 && picture.data + picture.size <= size_;
  }
  return tables;
}

void Mapper::ClaimPictures(const PictureList& list) {
  const std::span pictures(list.pictures.data(), std::min(mostPictures, list.pictures.size()));
  const std::map<int, PictureTable> tables = Tables(pictures);
  for (const auto& [number, table] : tables) {
    const Offset end = EndsPictureTable(table.end) ? table.end + entrySize : table.end;
    claims_.Add({table.begin, end - table.begin, MapKind::PictureTable, table.Sure(), number});
  }
  for (const Picture& picture : pictures) {
    if (picture.outside)
      claims_.Add({picture.entry, entrySize, MapKind::PictureHeader, Sureness::Guessed, picture.number,
                   picture.entry});
    const Sureness sure = picture.outside ? Sureness::Guessed : tables.at(picture.table).Sure();
    claims_.Add({picture.data, picture.size, MapKind::Picture, sure, picture.number, picture.entry});
  }
}

void Mapper::ClaimRingtone(const Ringtone& ringtone) {
  MapRegion claim{ringtone.data,     ringtone.size,   MapKind::RingtoneFile,
                  Sureness::Certain, ringtone.number, ringtone.entry};
  if (!ringtone.IsFile()) {
    claim.kind = MapKind::Melody;
    claim.sure = Sureness::Likely;
    if (ringtone.size > 0) claim.size += recordSize;  // the record that ends it
  } else {
    claims_.Add({Offset{image_.GetAdr(ringtone.entry + 4)} - image_.LoadBase(), 4, MapKind::RingtonePointer,
                 Sureness::Likely, ringtone.number, ringtone.entry});
  }
  claims_.Add(claim);
}

void Mapper::ClaimRingtones(const RingtoneList& list) {
  if (!list.table) return;
  Offset end = *list.table + 5 * entrySize;  // that it was known by
  for (const Ringtone& ringtone : list.ringtones) {
    end = std::max(end, ringtone.entry + entrySize);
    ClaimRingtone(ringtone);
  }
  claims_.Add({*list.table, end - *list.table, MapKind::RingtoneTable, Sureness::Certain});
}

}  // namespace

std::span<const MapRegion> DumpMap::Within(Offset offset, Offset size) const {
  const auto first = std::ranges::upper_bound(regions, offset, {}, &MapRegion::End);
  const auto end = std::ranges::lower_bound(first, regions.end(), offset + size, {}, &MapRegion::offset);
  return {first, end};
}

DumpMap MapDump(const Fullflash& image, const Identification& info, const BlockStore& blocks,
                const PictureList& pictures, const RingtoneList& ringtones) {
  Mapper mapper(image);
  mapper.ClaimFirmware(info);
  mapper.ClaimErased();
  mapper.ClaimBlocks(blocks);
  mapper.ClaimPictures(pictures);
  mapper.ClaimRingtones(ringtones);
  return {std::move(mapper).Regions()};
}

DumpMap MapDump(const Fullflash& image, const Identification& info, Progress& progress) {
  const BlockStore blocks = GetEE(image, info.Model, progress);
  const PictureList pictures = GetP(image, progress);
  return MapDump(image, info, blocks, pictures, GetRingtones(image, progress));
}

}  // namespace tarvelo
