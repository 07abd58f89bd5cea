// Arbitrary text as a melody, and arbitrary bytes as its records; both become sound files.
#include <numeric>

#include "fuzz/target.h"
#include "ringtones/melody.h"
#include "ringtones/ringtone_files.h"
#include "ringtones/ringtone_length.h"

namespace tarvelo::fuzz {
namespace {

std::int64_t TimeOf(const std::vector<Tone>& melody) {
  return std::accumulate(melody.begin(), melody.end(), std::int64_t{0},
                         [](std::int64_t sum, Tone tone) { return sum + tone.duration; });
}

std::vector<Tone> Read(std::string_view text) {
  std::vector<Tone> tones;
  std::size_t position = 0;
  for (std::size_t last = 0; const auto tone = NextTone(text, position); last = position) {
    Check(position <= text.size(), "reading stays within the text");
    Check(position > last, "reading a tone moves on");
    Check(tone->frequency <= 65500 && tone->duration <= 10000, "a tone can be played");
    tones.push_back(*tone);
  }
  Check(position <= text.size(), "reading ends within the text");
  Check(tones == ParseMelody(text), "a melody is its tones one by one");
  return tones;
}

void WriteMidi(const std::vector<Tone>& melody) {
  const std::vector<std::uint8_t> file = MelodyMidi(melody);
  Check(file.size() <= 64 + 14 * melody.size(), "a MIDI file is as long as its tones");
  const FileLength length = LengthOfMidi(file);
  Check(length.size == static_cast<Offset>(file.size()), "a MIDI file is read to its end");
  if (file.size() <= 0x100000)
    Check(length.time == TimeOf(melody), "a MIDI file sounds as long as its tones");
}

void WriteWave(const std::vector<Tone>& melody) {
  constexpr std::int64_t longest = 600000;  // ms
  const std::vector<std::uint8_t> file = MelodyWave(melody);
  const std::int64_t time = std::min(TimeOf(melody), longest);
  Check(static_cast<std::int64_t>(file.size()) <= 48 + time * 22050 / 1000, "a WAVE file is bounded");
  const FileLength length = LengthOfWave(file);
  Check(length.size == static_cast<Offset>(file.size()), "a WAVE file is read to its end");
  Check(length.time == time, "a WAVE file sounds as long as its tones");
}

void RoundTrip(Bytes records) {
  const std::vector<Tone> tones = DecodeMelody(records, 0);
  Check(DecodeMelody(records, 0, 3).size() == std::min<std::size_t>(3, tones.size()), "a limit is kept");
  std::vector<Tone> heard;
  for (const Tone& tone : tones) heard.push_back(Heard(tone));
  Check(ParseMelody(MelodyText(tones)) == heard, "a text form is read back as what is heard");
}

}  // namespace

void Run(Bytes data) {
  const std::vector<Tone> melody = Read(TextOf(data));
  WriteMidi(melody);
  if (TimeOf(melody) < 3000) WriteWave(melody);  // longer ones take long and are no different
  RoundTrip(data);
}

}  // namespace tarvelo::fuzz
