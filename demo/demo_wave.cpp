#include "demo/demo_sound_files.h"
#include "ringtones/wave_file.h"

namespace tarvelo {
namespace {

using FileBytes = std::vector<std::uint8_t>;

constexpr unsigned sampleRate = 8000;
constexpr unsigned sampleCount = sampleRate * 3 / 2;
constexpr unsigned attack = 40;  // samples until the bell is at its loudest
constexpr std::int64_t unit = 1 << 16;

// One partial of a bell's sound.
struct Partial {
  unsigned frequency;  // hundredths of a hertz
  int loudness;        // at the start, in units of a sample
  int decay;           // samples in which about two thirds of the loudness are lost
};

// c5, e5, g5, c6, each with its octave; the higher the sooner gone.
constexpr Partial bell[] = {{52325, 26, 4200}, {104650, 11, 2400}, {65926, 20, 3800},  {131851, 8, 2000},
                            {78399, 18, 3400}, {156798, 6, 1700},  {104650, 14, 2800}, {209300, 4, 1300}};

// The sine of a phase of 2^32 steps a turn, times `unit`; by a rational approximation that is right
// to two thousandths.
std::int64_t Sine(std::uint32_t phase) {
  constexpr std::int64_t half = 1 << 15;  // of a turn
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

FileBytes BellWave() {
  const std::vector<std::int64_t> levels = Samples();
  FileBytes samples;
  for (unsigned i = 0; i < sampleCount; ++i) {
    const std::int64_t level = i < attack ? levels[i] * i / attack : levels[i];
    samples.push_back(static_cast<std::uint8_t>(128 + level / unit));
  }
  return WaveFile(samples, sampleRate);
}

}  // namespace tarvelo
