#include "ringtones/ringtone_search.h"

#include <algorithm>
#include <array>
#include <functional>

#include "core/scan_run.h"
#include "ringtones/melody.h"
#include "ringtones/ringtone_length.h"

namespace tarvelo {
namespace {

constexpr std::uint8_t lastKind = 15;

// The numbers of the second to the fifth entry. They are rarer in an image than the zeros of the first.
constexpr Probe entryNumbers[] = {{.offset = 8, .value = 1},
                                  {.offset = 16, .value = 2},
                                  {.offset = 24, .value = 3},
                                  {.offset = 32, .value = 4}};

class Search {
 public:
  Search(const Fullflash& image, const SieveMarks& marks, Progress& progress)
      : image_(image),
        sieve_(ringtoneTables, marks.Of(ringtoneTables)),
        end_(static_cast<Offset>(image.ff().size())),
        progress_(progress, 0, end_) {}

  RingtoneList Run() {
    list_.table = FindTable();
    if (list_.table) {
      ReadTable(*list_.table);
      MeasureMelodies();
    }
    return std::move(list_);
  }

 private:
  std::optional<Offset> FindTable() {
    const Offset last = end_ - RingtoneList::startEntries * Ringtone::entrySize - 1;
    std::optional<Offset> found;
    ScanWithProgress(image_.ff(), sieve_, 2, 0, last, progress_, [&](Offset p) {
      if (IsTable(p)) found = p;
      return found.has_value();
    });
    return found;
  }

  // The byte behind the five entries must be inside the image.
  [[nodiscard]] bool IsTable(Offset p) const {
    for (int number = 0; number < RingtoneList::startEntries; ++number, p += Ringtone::entrySize)
      if (image_.Word(p) != number || image_.Byte(p + 2) > lastKind || image_.Byte(p + 3) != 0) return false;
    return image_.Byte(p) == RingtoneList::startEntries;
  }

  void ReadTable(Offset p) {
    for (;; p += Ringtone::entrySize) {
      while (p <= end_ - Ringtone::entrySize && image_.Byte(p + 1) == 8) p += 2;
      if (p > end_ - Ringtone::entrySize || image_.Byte(p + 2) > lastKind) return;
      ReadEntry(p);
    }
  }

  void ReadEntry(Offset p) {
    Ringtone ringtone;
    ringtone.number = image_.Byte(p);
    ringtone.kind = image_.Byte(p + 2);
    ringtone.entry = p;
    const std::int32_t address = image_.GetAdr(p + 4);
    if (listed_[ringtone.number] || address == 0 || ringtone.kind == 1) return;
    ringtone.data = Offset{address} - image_.LoadBase();
    const bool isFile = ringtone.kind >= 6 && ringtone.kind <= 8;
    if (isFile ? !FindFile(ringtone) : ringtone.data < 1) return;
    listed_[ringtone.number] = true;
    list_.ringtones.push_back(ringtone);
  }

  // Follows the pointer at `data`. Returns whether it leads to a file that can be listed.
  bool FindFile(Ringtone& ringtone) {
    if (ringtone.data < 0 || ringtone.data > end_ - 4) return false;
    ringtone.data = Offset{image_.GetAdr(ringtone.data)} - image_.LoadBase();
    if (ringtone.data < 0 || ringtone.data >= end_) return false;
    const Bytes file = image_.ff().subspan(static_cast<std::size_t>(ringtone.data));
    if (file[0] != 'M' && file[0] != 'R') return false;
    const bool isMidi = file[0] == 'M';
    ringtone.form = isMidi ? RingtoneForm::Midi : RingtoneForm::Wave;
    const FileLength length = isMidi ? LengthOfMidi(file) : LengthOfWave(file);
    ringtone.size = length.size;
    ringtone.time = length.time;
    return true;
  }

  // Melodies may begin inside others and share their end. From the last melody backwards, each is walked only
  // up to the next one of the same alignment, so that no record is read twice.
  void MeasureMelodies() {
    std::vector<Ringtone*> melodies;
    for (Ringtone& ringtone : list_.ringtones)
      if (!ringtone.IsFile()) melodies.push_back(&ringtone);
    std::ranges::sort(melodies, std::greater{}, [](const Ringtone* melody) { return melody->data; });
    std::array<const Ringtone*, 4> nextOfAlignment{};
    for (Ringtone* melody : melodies) {
      const Ringtone*& next = nextOfAlignment[static_cast<std::size_t>(melody->data % 4)];
      Measure(*melody, next);
      next = melody;
    }
  }

  void Measure(Ringtone& melody, const Ringtone* next) const {
    Offset p = melody.data;
    for (; p <= end_ - 4; p += 4) {
      if (next != nullptr && p == next->data) {
        melody.time += next->time;
        p += next->size;
        break;
      }
      const std::uint16_t duration = image_.Word(p + 2);
      if (EndsMelody(image_.Word(p), duration)) break;
      melody.time += duration;
    }
    melody.size = p - melody.data;
  }

  const Fullflash& image_;
  const Sieve sieve_;
  const Offset end_;
  ProgressRun progress_;
  std::array<bool, 256> listed_{};
  RingtoneList list_;
};

}  // namespace

const SieveForm ringtoneTables{2, entryNumbers};

RingtoneList GetRingtones(const Fullflash& image, Progress& progress, const SieveMarks& marks) {
  return Search(image, marks, progress).Run();
}

}  // namespace tarvelo
