#include <array>

#include "core/byte_writer.h"
#include "demo/demo_tunes.h"

namespace tarvelo {
namespace {

constexpr unsigned restFrequency = 0xFFFB;
constexpr unsigned markFrequency = 0xFFFA;
constexpr int gap = 25;  // milliseconds of silence between two equal notes

// The frequencies of c8 .. b8 in hundredths of a hertz. An octave lower has half the frequency.
constexpr std::array<unsigned, 12> topOctave{418601, 443492, 469864, 497803, 527404, 558765,
                                             591991, 627193, 664488, 704000, 745862, 790213};
constexpr int topKey = 108;  // c8

unsigned Frequency(int key) {
  if (key == rest) return restFrequency;
  const int octavesDown = (topKey + 11 - key) / 12;
  const unsigned divisor = 100u << octavesDown;
  return (topOctave[static_cast<std::size_t>(key % 12)] + divisor / 2) / divisor;
}

void AddRecord(ByteBuffer& records, unsigned frequency, int milliseconds) {
  AppendWord(records, frequency);
  AppendWord(records, static_cast<unsigned>(milliseconds));
}

}  // namespace

std::vector<std::uint8_t> Melody(const Tune& tune, MelodyEnd end, bool mark) {
  const std::vector<Note> notes = ParseNotes(tune.notes);
  const int whole = 4 * 60000 / tune.quartersPerMinute;  // milliseconds
  ByteBuffer records;
  if (mark) AddRecord(records, markFrequency, 0);
  for (std::size_t i = 0; i < notes.size(); ++i) {
    const int duration = notes[i].ticks * whole / ticksOfWhole;
    const bool again = i + 1 < notes.size() && notes[i].key != rest && notes[i + 1].key == notes[i].key;
    AddRecord(records, Frequency(notes[i].key), again ? duration - gap : duration);
    if (again) AddRecord(records, restFrequency, gap);
  }
  AddRecord(records, static_cast<unsigned>(end), 0);
  return records;
}

}  // namespace tarvelo
