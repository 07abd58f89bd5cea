#include "demo/demo_ringtones.h"

#include <vector>

#include "demo/demo_sound_files.h"
#include "demo/demo_tunes.h"

namespace tarvelo {
namespace {

constexpr std::size_t melodiesAt = 0x400;
constexpr std::size_t filesAt = 0x4000;

constexpr std::uint8_t ring = 0;
constexpr std::uint8_t hidden = 1;
constexpr std::uint8_t alarm = 2;
constexpr std::uint8_t signal = 3;
constexpr std::uint8_t midiFile = 6;
constexpr std::uint8_t waveFile = 7;
constexpr std::uint8_t otherFile = 8;
constexpr std::uint8_t noKind = 0x10;  // ends the table

class RingtoneTable {
 public:
  RingtoneTable(Flash& flash, Area area)
      : flash_(flash),
        entries_(flash, {area.begin, area.begin + melodiesAt}),
        melodies_(flash, {area.begin + melodiesAt, area.begin + filesAt}),
        files_(flash, {area.begin + filesAt, area.end}) {}

  void AddMelody(std::uint8_t number, std::uint8_t kind, std::span<const std::uint8_t> records) {
    flash_.PutPointer(Entry(number, kind), melodies_.PutInPage(records));
  }

  // The pointer to the file is directly before it.
  void AddFile(std::uint8_t number, std::uint8_t kind, std::span<const std::uint8_t> file) {
    files_.Align(cpuPage);
    const std::size_t pointer = files_.Reserve(4);
    flash_.PutPointer(pointer, files_.PutInPage(file));
    flash_.PutPointer(Entry(number, kind), pointer);
  }

  // A ringtone that was removed from the firmware along with its address.
  void AddWithoutAddress(std::uint8_t number, std::uint8_t kind) {
    PutDWord(flash_.bytes, Entry(number, kind), 0);
  }

  // A gap of one entry, which readers skip two bytes at a time: every second byte is 8.
  void AddGap() {
    const std::size_t gap = entries_.Reserve(entrySize);
    for (std::size_t i = 0; i < entrySize; i += 2) PutWord(flash_.bytes, gap + i, 0x0800);
  }

  void End(std::uint8_t number) { AddWithoutAddress(number, noKind); }

 private:
  static constexpr std::size_t entrySize = 8;

  // Adds an entry. Returns the offset of its pointer.
  std::size_t Entry(std::uint8_t number, std::uint8_t kind) {
    const std::size_t entry = entries_.Reserve(entrySize);
    PutWord(flash_.bytes, entry, number);
    return PutWord(flash_.bytes, entry + 2, kind);
  }

  Flash& flash_;
  AreaWriter entries_;
  AreaWriter melodies_;
  AreaWriter files_;
};

// The kind of a tune, and how its melody ends.
struct Use {
  std::uint8_t kind;
  MelodyEnd end;
  bool mark = false;
};

}  // namespace

void WriteRingtones(Flash& flash, Area area) {
  using enum MelodyEnd;
  constexpr Use uses[tunes.size()] = {
      {ring, first},        {ring, second}, {ring, silence}, {hidden, first},  {ring, first, true},
      {ring, second},       {alarm, first}, {ring, silence}, {signal, second}, {alarm, first},
      {ring, second, true}, {ring, first},  {9, first},      {15, silence}};
  RingtoneTable table(flash, area);
  std::uint8_t number = 0;
  for (std::size_t i = 0; i < tunes.size(); ++i) {
    if (number == 8) table.AddGap();
    table.AddMelody(number++, uses[i].kind, Melody(tunes[i], uses[i].end, uses[i].mark));
    if (number == 6) {
      table.AddFile(number++, midiFile, MidiFile(minuet));
      table.AddFile(number++, waveFile, BellWave());
    }
  }
  table.AddMelody(2, ring, Melody(tunes[0], first));  // this number is already in use
  table.AddWithoutAddress(number++, ring);
  table.AddFile(number++, otherFile, TextMelodyFile());
  table.AddMelody(number++, signal, Melody({"Silence", 60, ""}, silence));
  table.End(number);
}

}  // namespace tarvelo
