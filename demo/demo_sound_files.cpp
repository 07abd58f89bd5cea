#include "demo/demo_sound_files.h"

#include <string_view>

#include "core/byte_writer.h"
#include "ringtones/midi_number.h"
#include "ringtones/wave_file.h"

namespace tarvelo {
namespace {

constexpr unsigned ticksOfQuarter = ticksOfWhole / 4;

void Chunk(ByteBuffer& out, std::string_view name, const ByteBuffer& content) {
  AppendText(out, name);
  AppendBigDWord(out, content.size());
  AppendBytes(out, content);
}

void EndTrack(ByteBuffer& track, unsigned delta) {
  AppendMidiNumber(track, delta);
  AppendBytes(track, {0xFF, 0x2F, 0x00});
}

ByteBuffer TempoTrack(int quartersPerMinute) {
  constexpr std::string_view title = "Minuet";
  ByteBuffer track;
  AppendBytes(track, {0x00, 0xFF, 0x03, static_cast<std::uint8_t>(title.size())});
  AppendText(track, title);
  AppendBytes(track, {0x00, 0xFF, 0x58, 0x04, 3, 2, 24, 8});  // three quarters a bar
  AppendBytes(track, {0x00, 0xFF, 0x51, 0x03});
  const int microseconds = 60000000 / quartersPerMinute;
  track.push_back(static_cast<std::uint8_t>(microseconds >> 16));
  AppendBigWord(track, static_cast<unsigned>(microseconds));
  EndTrack(track, 0);
  return track;
}

ByteBuffer VoiceTrack(std::string_view notes, unsigned channel, std::uint8_t instrument,
                      std::uint8_t loudness) {
  const auto event = [&](unsigned kind) { return static_cast<std::uint8_t>(kind << 4 | channel); };
  ByteBuffer track{0x00, event(0xC), instrument};
  unsigned waiting = 0;
  for (const Note& note : ParseNotes(notes)) {
    const auto ticks = static_cast<unsigned>(note.ticks);
    if (note.key == rest) {
      waiting += ticks;
      continue;
    }
    const auto key = static_cast<std::uint8_t>(note.key);
    const unsigned sounding = ticks - ticks / 8;
    AppendMidiNumber(track, waiting);
    AppendBytes(track, {event(0x9), key, loudness});
    AppendMidiNumber(track, sounding);
    AppendBytes(track, {event(0x8), key, 0x40});
    waiting = ticks - sounding;
  }
  EndTrack(track, waiting);
  return track;
}

constexpr unsigned sampleRate = 8000;
constexpr unsigned sampleCount = sampleRate * 3 / 2;
constexpr unsigned attack = 40;  // samples until the bell is loudest
constexpr std::int64_t unit = 1 << 16;

// One partial of a bell's sound.
struct Partial {
  unsigned frequency;  // hundredths of a hertz
  int loudness;        // at the start, in units of a sample
  int decay;           // samples until about two thirds of the loudness are lost
};

// c5, e5, g5, c6, each with its octave. Higher partials decay faster.
constexpr Partial bell[] = {{52325, 26, 4200}, {104650, 11, 2400}, {65926, 20, 3800},  {131851, 8, 2000},
                            {78399, 18, 3400}, {156798, 6, 1700},  {104650, 14, 2800}, {209300, 4, 1300}};

// `unit` times the sine of a phase of 2^32 steps per turn, by a rational approximation with an error of at
// most two thousandths.
std::int64_t Sine(std::uint32_t phase) {
  constexpr std::int64_t half = 1 << 15;  // half a turn
  const std::int64_t x = phase >> 16 & 0x7FFF;
  const std::int64_t p = x * (half - x);
  const std::int64_t sine = unit * 16 * p / (5 * half * half - 4 * p);
  return phase >> 31 != 0 ? -sine : sine;
}

std::vector<std::int64_t> Samples() {
  std::vector<std::int64_t> samples(sampleCount);
  for (const Partial& partial : bell) {
    const auto step = static_cast<std::uint32_t>((std::uint64_t{partial.frequency} << 32) /
                                                 (std::uint64_t{100} * sampleRate));
    std::int64_t loudness = partial.loudness * unit * unit;
    std::uint32_t phase = 0;
    for (std::int64_t& sample : samples) {
      sample += loudness / unit * Sine(phase) / unit;
      loudness -= loudness / partial.decay;
      phase += step;
    }
  }
  return samples;
}

}  // namespace

ByteBuffer MidiFile(const Duet& duet) {
  ByteBuffer head;
  AppendBigWord(head, 1);  // format
  AppendBigWord(head, 3);  // tracks
  AppendBigWord(head, ticksOfQuarter);
  ByteBuffer file;
  Chunk(file, "MThd", head);
  Chunk(file, "MTrk", TempoTrack(duet.quartersPerMinute));
  Chunk(file, "MTrk", VoiceTrack(duet.upper, 0, 6, 100));  // harpsichord
  Chunk(file, "MTrk", VoiceTrack(duet.lower, 1, 6, 80));
  return file;
}

ByteBuffer BellWave() {
  const std::vector<std::int64_t> levels = Samples();
  ByteBuffer samples;
  for (unsigned i = 0; i < sampleCount; ++i) {
    const std::int64_t level = i < attack ? levels[i] * i / attack : levels[i];
    samples.push_back(static_cast<std::uint8_t>(128 + level / unit));
  }
  return WaveFile(samples, sampleRate);
}

ByteBuffer TextMelodyFile() {
  ByteBuffer file;
  AppendText(file,
             "BEGIN:IMELODY\r\nVERSION:1.2\r\nFORMAT:CLASS1.0\r\nNAME:Signal\r\nBEAT:120\r\nSTYLE:S1\r\n"
             "MELODY:*4c3e3g3*5c1\r\nEND:IMELODY\r\n");
  return file;
}

}  // namespace tarvelo
