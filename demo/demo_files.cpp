#include "demo/demo_files.h"

#include <algorithm>
#include <array>
#include <map>
#include <string_view>
#include <utility>
#include <vector>

#include "artwork_files.h"
#include "demo/artwork.h"
#include "demo/demo_sound_files.h"
#include "pictures/bitmap_file.h"

namespace tarvelo {
namespace {

constexpr int firstRecord = 6000;
constexpr int root = 6;
constexpr std::size_t noPiece = 0xFFFF;
constexpr std::uint8_t live = 0xFC;
constexpr std::uint8_t deleted = 0xF0;
constexpr std::size_t slotSize = 12;

enum Attribute : std::uint8_t { none = 0, readOnly = 0x01, hidden = 0x02, directory = 0x10 };

struct Entry {
  int number = 0;
  int parent = root;
  std::string_view name;
  std::size_t attributes = none;
  std::size_t time = 0;  // in the form of DOS
};

// A time in the form of DOS.
constexpr std::size_t Time(std::size_t year, std::size_t month, std::size_t day, std::size_t hour,
                           std::size_t minute) {
  return (year - 1980) << 25 | month << 21 | day << 16 | hour << 11 | minute << 5;
}

ByteBuffer Text(std::string_view text) { return {text.begin(), text.end()}; }

class Volume {
 public:
  Volume(Flash& flash, Area units) : flash_(flash), isWide_(!flash.PageMode()) {
    unitSize_ = isWide_ ? 2 * flashBlock : flashBlock;
    for (std::size_t begin = units.begin; begin < units.end; begin += unitSize_) Format(begin);
  }

  // Writes an entry's header and bytes, in pieces of at most `pieceSize` bytes. The numbers of the further
  // pieces follow its own. Deletes the records of the same numbers.
  void Write(const Entry& entry, const ByteBuffer& bytes, std::size_t pieceSize = 0x10000) {
    const std::size_t count = std::max<std::size_t>(1, (bytes.size() + pieceSize - 1) / pieceSize);
    for (std::size_t piece = count; piece-- > 0;) {
      const int number = entry.number + 2 * static_cast<int>(piece);
      const std::size_t next = piece + 1 < count ? static_cast<std::size_t>(number) + 2 : noPiece;
      const Bytes rest = Bytes(bytes).subspan(piece * pieceSize);
      if (!bytes.empty()) WriteRecord(number + 1, rest.first(std::min(rest.size(), pieceSize)));
      WriteRecord(number, Header(entry, number, next, piece == 0));
    }
  }

  void WriteFolder(const Entry& entry, std::initializer_list<std::size_t> members) {
    ByteBuffer items;
    for (const std::size_t member : members) {
      AppendWord(items, member);
      AppendWord(items, 0);
    }
    Entry folder = entry;
    folder.attributes |= directory;
    Write(folder, items);
  }

  void Delete(int number) {
    for (const int record : {number, number + 1}) SetDeleted(slots_.at(record));
  }

  // Writes the unit list, the group table and the pointer to it.
  void WriteMap(Area area) const {
    AreaWriter map(flash_, area);
    ByteBuffer list, groups, pointer;
    for (const Unit& unit : units_) {
      AppendDWord(list, Address(unit.begin));
      AppendWord(list, isWide_ ? 0x80 : 0x40);  // KiB
    }
    const std::size_t listAt = map.Put(list);
    for (std::size_t i = 0; i < units_.size(); ++i) {
      AppendWord(groups, 1);
      AppendPagePointer(groups, listAt + 6 * i);
    }
    const std::size_t groupsAt = map.Put(groups);
    AppendDWord(pointer, units_.size());
    AppendWord(pointer, 1);
    AppendPagePointer(pointer, groupsAt);
    map.Align(2);
    map.Put(pointer);
  }

 private:
  struct Unit {
    std::size_t begin;
    AreaWriter data;
    std::size_t slot;  // the last written one
  };

  [[nodiscard]] std::size_t Address(std::size_t offset) const {
    return offset + 0x1000000 - flash_.bytes.size();
  }
  void AppendPagePointer(ByteBuffer& out, std::size_t target) const {
    AppendWord(out, Address(target) % cpuPage);
    AppendWord(out, Address(target) / cpuPage);
  }

  void Format(std::size_t begin) {
    constexpr std::array<std::uint8_t, 16> header{0xFE, 0xFE, 'F', 'F', 'S', 0, 0,    0,
                                                  1,    0,    1,   0,   1,   0, 0xFE, 0xFE};
    PutBytes(flash_.bytes, begin + 0x80, header);
    const std::size_t end = begin + unitSize_;
    units_.push_back({begin, AreaWriter(flash_, {begin + 0x90, end - 0x1000}), end});
  }

  [[nodiscard]] ByteBuffer Header(const Entry& entry, int number, std::size_t next, bool isNamed) const {
    ByteBuffer header;
    AppendWord(header, static_cast<std::size_t>(number));
    AppendWord(header, static_cast<std::size_t>(entry.parent));
    AppendDWord(header, entry.time);
    AppendWord(header, static_cast<std::size_t>(number) + 1);
    AppendWord(header, entry.attributes);
    AppendWord(header, 0);
    AppendWord(header, next);
    if (!isNamed) return header;
    if (isWide_) AppendDWord(header, 0xFFFFFFFF);
    AppendText(header, entry.name);
    header.push_back(0);
    return header;
  }

  // The units take turns.
  void WriteRecord(int number, Bytes bytes) {
    Unit& unit = units_[turn_++ % units_.size()];
    const std::size_t at = unit.data.Put(bytes);
    ByteBuffer slot{live, 0};
    AppendWord(slot, bytes.size());
    AppendDWord(slot, Address(at));
    AppendWord(slot, static_cast<std::size_t>(number + firstRecord));
    AppendBytes(slot, {0, live});
    unit.slot -= slotSize;
    PutBytes(flash_.bytes, unit.slot, slot);
    const auto [place, isNew] = slots_.try_emplace(number, unit.slot);
    if (!isNew) SetDeleted(std::exchange(place->second, unit.slot));
  }

  void SetDeleted(std::size_t slot) {
    PutByte(flash_.bytes, slot, deleted);
    PutByte(flash_.bytes, slot + slotSize - 1, deleted);
  }

  Flash& flash_;
  bool isWide_;
  std::size_t unitSize_ = 0;
  std::vector<Unit> units_;
  std::size_t turn_ = 0;
  std::map<int, std::size_t> slots_;  // the newest slot of each record
};

}  // namespace

void WriteFiles(Flash& flash, Area units, Area map) {
  constexpr std::size_t made = Time(2003, 5, 21, 16, 5), changed = Time(2003, 11, 24, 17, 58);
  Volume volume(flash, units);
  volume.Write({60, root, "todo.txt", none, made}, Text("Charge the battery.\r\n"));
  volume.Delete(60);
  volume.WriteFolder({root, 0, "", none, made}, {10, 20, 30, 50});
  volume.WriteFolder({10, root, "Pictures", none, made}, {12, 18});
  volume.Write({12, 10, "globe.bmp", none, made}, BmpFile(CutStrip(embedded::globe_png, 52).front()), 0x1000);
  volume.Write({18, 10, "battery.bmp", readOnly, made}, BmpFile(CutStrip(embedded::battery_png, 20).front()));
  volume.WriteFolder({20, root, "Melodies", none, made}, {22});
  volume.Write({22, 20, "minuet.mid", none, made}, MidiFile(minuet));
  volume.WriteFolder({30, root, "Texts", none, made}, {32, 34, 36});
  volume.Write({32, 30, "shopping.txt", none, made}, Text("Bread, milk, a new cover.\r\n"));
  volume.Write({34, 30,
                "\x1FGr\xC3\xBC\xC3\x9F"
                "e.txt",
                none, made},
               Text("Written on the phone.\r\n"));
  volume.Write({36, 30, "empty.txt", none, made}, {});
  volume.Write({50, root, "settings.ini", hidden, made}, Text("[Browser]\r\nSort=Name\r\n"));
  volume.Write({32, 30, "shopping.txt", none, changed}, Text("Bread, milk, a new cover, batteries.\r\n"));
  volume.WriteMap(map);
}

}  // namespace tarvelo
