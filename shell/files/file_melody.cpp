#include "shell/files/file_melody.h"

#include <algorithm>
#include <string>

#include "ringtones/ringtone_length.h"

namespace tarvelo {
namespace {

constexpr std::size_t fewest = 4;  // records; fewer may be anything

bool IsLikely(Tone tone) {
  constexpr int lowest = 20, highest = 20000;  // Hz, about what ears hear
  constexpr int longest = 10000;               // ms
  const bool isRest = tone.frequency == 0 || tone.frequency >= 0xFFFA;
  return tone.duration <= longest && (isRest || (tone.frequency >= lowest && tone.frequency <= highest));
}

std::vector<Tone> ReadRecords(Bytes file) {
  if (file.size() % Tone::recordSize != 0) return {};
  std::vector<Tone> tones = DecodeMelody(file, 0);
  const std::size_t all = file.size() / Tone::recordSize;
  const bool isWhole = tones.size() == all || tones.size() + 1 == all;
  if (tones.size() < fewest || !isWhole || !std::ranges::all_of(tones, IsLikely)) return {};
  return tones;
}

std::vector<Tone> ReadPairs(Bytes file) {
  const std::string_view text(reinterpret_cast<const char*>(file.data()), file.size());
  if (text.find(':') == text.npos || text.find_first_not_of("0123456789: \r\n") != text.npos) return {};
  return ParseMelody(text);
}

bool HasName(Bytes file, std::size_t at, std::string_view name) {
  return file.size() >= at + name.size() &&
         std::string_view(reinterpret_cast<const char*>(file.data()) + at, name.size()) == name;
}

}  // namespace

std::vector<Tone> ReadMelody(Bytes file) {
  std::vector<Tone> tones = ReadPairs(file);
  return tones.empty() ? ReadRecords(file) : tones;
}

std::optional<SoundFile> ReadSound(Bytes file) {
  if (HasName(file, 0, "MThd")) return SoundFile{"MIDI", LengthOfMidi(file).time};
  if (HasName(file, 0, "RIFF") && HasName(file, 8, "WAVE")) return SoundFile{"WAVE", LengthOfWave(file).time};
  return {};
}

}  // namespace tarvelo
