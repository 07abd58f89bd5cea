#include "ringtones/ringtones_explorer.h"

#include <algorithm>

#include "core/notation.h"
#include "ringtones/melody.h"
#include "ringtones/ringtone_files.h"
#include "ringtones/ringtone_search.h"
#include "ringtones/ringtone_table.h"

namespace tarvelo {
namespace {

const RingtoneList& ListOf(const Findings& found) { return found.As<RingtoneList>(); }

const SieveForm* SieveOf(const Dump&) { return &ringtoneTables; }

Findings Search(const Dump& dump, Progress& progress) {
  return Findings(GetRingtones(dump.image, progress, dump.marks));
}

std::size_t Count(const Findings& found) { return ListOf(found).ringtones.size(); }

Item ItemOf(const Findings& found, std::size_t record) {
  const Ringtone& ringtone = ListOf(found).ringtones[record];
  return {.number = ringtone.number,
          .data = {ringtone.data, ringtone.size},
          .entry = {ringtone.entry, Ringtone::entrySize}};
}

TableRows Rows(const Dump& dump, const Findings& found, const Messages& messages, CellRoom room) {
  constexpr std::size_t onScreen = 0x1000000;
  constexpr std::size_t inFiles = 0x10000000;
  return RingtoneRows(ListOf(found), dump.image, messages, room == CellRoom::File ? inFiles : onScreen);
}

std::string Lines(const Findings& found, const Messages& messages) {
  return RingtoneInformation(ListOf(found), messages);
}

std::string Status(const Findings& found) {
  const std::size_t count = Count(found);
  return count > 0 ? std::to_string(count) : std::string();
}

// --- claims ---

constexpr ClaimGroup ringtones{Text::MapRingtone, {}, 0xCC79A7};

constexpr ClaimKind table{"ringtone-table", Text::MapRingtoneTable, {}, 70, &ringtones};
constexpr ClaimKind file{"ringtone-file", Text::MapRingtone, Text::MapFile, 80, &ringtones, true};
constexpr ClaimKind pointer{"ringtone-pointer", Text::MapRingtone, Text::MapPointer, 140, &ringtones, true};
constexpr ClaimKind melody{"melody", Text::MapRingtone, {}, 150, &ringtones, true};
constexpr const ClaimKind* kinds[] = {&melody, &table, &file, &pointer};

// Only likely, because a melody has no header.
void ClaimMelody(const Ringtone& ringtone, const TakeClaim& take) {
  const Offset end = ringtone.size > 0 ? Tone::recordSize : 0;  // the record that ends it
  take({ringtone.data, ringtone.size + end, &melody, Sureness::Likely, ringtone.number, ringtone.entry});
}

void ClaimFile(const Fullflash& image, const Ringtone& ringtone, const TakeClaim& take) {
  const Offset place = Offset{image.GetAdr(ringtone.entry + 4)} - image.LoadBase();
  take({place, 4, &pointer, Sureness::Likely, ringtone.number, ringtone.entry});
  take({ringtone.data, ringtone.size, &file, Sureness::Certain, ringtone.number, ringtone.entry});
}

void ClaimRingtones(const Dump& dump, const Findings& found, const TakeClaim& take) {
  const RingtoneList& list = ListOf(found);
  if (!list.table) return;
  Offset end = *list.table + RingtoneList::startEntries * Ringtone::entrySize;
  for (const Ringtone& ringtone : list.ringtones) {
    end = std::max(end, ringtone.entry + Ringtone::entrySize);
    if (ringtone.IsFile())
      ClaimFile(dump.image, ringtone, take);
    else
      ClaimMelody(ringtone, take);
  }
  take({*list.table, end - *list.table, &table, Sureness::Certain});
}

// --- files ---

constexpr std::string_view formats[] = {"raw", "midi", "wav"};

RingtoneFormat FormatOf(std::string_view name) {
  if (name == "midi") return RingtoneFormat::Midi;
  return name == "wav" ? RingtoneFormat::Wave : RingtoneFormat::Raw;
}

ExportItem Write(const Dump& dump, const Findings& found, const ExportTarget& target) {
  return [&dump, &list = ListOf(found), target](std::size_t record) -> Exported {
    const Ringtone& ringtone = list.ringtones[record];
    const auto path = SaveRingtone(dump.image, ringtone, target.folder, target.stem, FormatOf(target.format));
    if (path) return {*path, {}};
    return {{}, "ringtone " + HexOfByte(ringtone.number) + " is a file of another format"};
  };
}

}  // namespace

constinit const Explorer ringtonesExplorer{
    .key = "ringtones",
    .about = "ringtones",
    .letter = 'R',
    .name = Text::Ringtones,
    .help = Text::HelpRingtones,
    .place = 6,
    .sieve = SieveOf,
    .search = Search,
    .count = Count,
    .item = ItemOf,
    .captions = RingtoneCaptions,
    .rows = Rows,
    .lines = Lines,
    .statusPanel = 7,
    .status = Status,
    .statusTip = Text::Ringtones,
    .kinds = kinds,
    .claim = ClaimRingtones,
    .files = ExplorerFiles{.folder = "MIDI", .formats = formats, .isNumberHex = true, .write = Write},
};

}  // namespace tarvelo
