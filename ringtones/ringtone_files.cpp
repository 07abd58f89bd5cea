#include "ringtones/ringtone_files.h"

#include <algorithm>

#include "core/byte_writer.h"
#include "core/file.h"
#include "core/notation.h"
#include "ringtones/midi_number.h"
#include "ringtones/wave_file.h"

namespace tarvelo {
namespace {

std::filesystem::path WriteNumbered(const std::filesystem::path& folder, std::string_view stem, int number,
                                    std::string_view extension, Bytes bytes) {
  MakeFolder(folder);
  std::filesystem::path file = folder / PathOf(NumberedFileName(stem, number, extension));
  // Deleted, not overwritten: a link of that name would lead to another file.
  if (FileExist(file)) RemoveFile(file);
  NoProgress progress;
  WriteFile(file, bytes, progress);
  return file;
}

constexpr std::uint32_t longestDelta = 0x0FFFFFFF;  // ticks before an event

// A quarter note has 500 ticks and lasts half a second, which players also assume if they ignore the tempo.
constexpr int ticksOfQuarter = 500;
constexpr int microsecondsOfQuarter = 500000;

ByteBuffer MidiEvents(std::span<const Tone> melody) {
  constexpr std::uint8_t squareLead = 80;
  constexpr std::uint8_t loudness = 100;
  ByteBuffer track{0x00, 0xFF, 0x51, 0x03};
  track.push_back(microsecondsOfQuarter >> 16);
  AppendBigWord(track, microsecondsOfQuarter);
  AppendBytes(track, {0x00, 0xC0, squareLead});
  std::uint32_t waiting = 0;
  std::uint32_t time = 0;
  for (const Tone& record : melody) {
    const Tone tone = Heard(record);
    if (tone.duration == 0) continue;
    time += tone.duration;
    if (time > longestDelta) break;
    const std::optional<int> key = KeyOf(tone.frequency);
    if (!key) {
      waiting += tone.duration;
      continue;
    }
    const auto keyByte = static_cast<std::uint8_t>(*key);
    AppendMidiNumber(track, waiting);
    AppendBytes(track, {0x90, keyByte, loudness});
    AppendMidiNumber(track, tone.duration);
    AppendBytes(track, {0x80, keyByte, 0x40});
    waiting = 0;
  }
  AppendMidiNumber(track, waiting);
  AppendBytes(track, {0xFF, 0x2F, 0x00});
  return track;
}

constexpr std::int64_t sampleRate = 22050;
constexpr std::int64_t longestWave = 600000;  // ms: 10 minutes

ByteBuffer Samples(std::span<const Tone> melody) {
  constexpr std::uint8_t low = 64;
  constexpr std::uint8_t silence = 128;
  constexpr std::uint8_t high = 192;
  ByteBuffer samples;
  std::int64_t time = 0;
  for (const Tone& record : melody) {
    const Tone tone = Heard(record);
    const bool isRest = tone.frequency == 0 || tone.frequency > sampleRate / 2;
    time = std::min(time + tone.duration, longestWave);
    // Counts from the start of the melody, so that lost fractions of samples do not add up.
    const std::int64_t count = time * sampleRate / 1000 - static_cast<std::int64_t>(samples.size());
    for (std::int64_t i = 0; i < count; ++i) {
      const bool isFirstHalf = i * tone.frequency * 2 / sampleRate % 2 == 0;
      samples.push_back(isRest ? silence : isFirstHalf ? high : low);
    }
    if (time == longestWave) break;
  }
  return samples;
}

}  // namespace

std::string NumberedFileName(std::string_view stem, int number, std::string_view extension) {
  const std::string digits = HexColumn(number, 4);
  return std::string(stem).append("_").append(digits).append(extension);
}

std::filesystem::path SaveDump(const Fullflash& image, const std::filesystem::path& folder,
                               std::string_view stem, int number, std::string_view extension, Offset offset,
                               Offset size) {
  const auto imageSize = static_cast<Offset>(image.ff().size());
  const Offset begin = std::clamp<Offset>(offset, 0, imageSize);
  const Offset count = std::clamp<Offset>(size, 0, imageSize - begin);
  return WriteNumbered(folder, stem, number, extension,
                       image.ff().subspan(static_cast<std::size_t>(begin), static_cast<std::size_t>(count)));
}

std::optional<std::filesystem::path> SaveRingtone(const Fullflash& image, const Ringtone& ringtone,
                                                  const std::filesystem::path& folder, std::string_view stem,
                                                  RingtoneFormat format) {
  const bool isMidi = format == RingtoneFormat::Midi;
  const RingtoneForm wanted = isMidi ? RingtoneForm::Midi : RingtoneForm::Wave;
  if (format == RingtoneFormat::Raw || ringtone.form == wanted)
    return SaveDump(image, folder, stem, ringtone.number, ringtone.Extension(), ringtone.data, ringtone.size);
  if (ringtone.IsFile()) return {};
  const std::vector<Tone> melody = DecodeMelody(image.ff(), ringtone.data);
  return WriteNumbered(folder, stem, ringtone.number, isMidi ? ".mid" : ".wav",
                       isMidi ? MelodyMidi(melody) : MelodyWave(melody));
}

ByteBuffer MelodyMidi(std::span<const Tone> melody) {
  const ByteBuffer track = MidiEvents(melody);
  ByteBuffer file;
  AppendText(file, "MThd");
  AppendBigDWord(file, 6);
  AppendBigWord(file, 0);  // format
  AppendBigWord(file, 1);  // tracks
  AppendBigWord(file, ticksOfQuarter);
  AppendText(file, "MTrk");
  AppendBigDWord(file, track.size());
  AppendBytes(file, track);
  return file;
}

ByteBuffer MelodyWave(std::span<const Tone> melody) { return WaveFile(Samples(melody), sampleRate); }

}  // namespace tarvelo
