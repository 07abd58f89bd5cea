#include <wx/log.h>
#include <wx/sound.h>

#include <chrono>
#include <cstdint>
#include <thread>
#include <vector>

#include "shell/platform/beeper.h"

namespace tarvelo {
namespace {

constexpr std::uint32_t rate = 44100;  // samples a second

void Append(std::vector<std::uint8_t>& bytes, std::uint32_t value, int count) {
  for (int i = 0; i < count; ++i) bytes.push_back(static_cast<std::uint8_t>(value >> 8 * i));
}

// A square wave, as a beeper sounds, as a RIFF WAVE file of 8-bit samples.
std::vector<std::uint8_t> SquareWave(int frequency, int milliseconds) {
  const std::uint32_t samples = rate / 1000 * static_cast<std::uint32_t>(milliseconds);
  std::vector<std::uint8_t> wave{'R', 'I', 'F', 'F'};
  Append(wave, 36 + samples, 4);
  for (const char c : {'W', 'A', 'V', 'E', 'f', 'm', 't', ' '}) wave.push_back(static_cast<std::uint8_t>(c));
  Append(wave, 16, 4);
  Append(wave, 1, 2);  // plain samples
  Append(wave, 1, 2);  // mono
  Append(wave, rate, 4);
  Append(wave, rate, 4);  // bytes a second
  Append(wave, 1, 2);     // bytes a sample
  Append(wave, 8, 2);     // bits a sample
  for (const char c : {'d', 'a', 't', 'a'}) wave.push_back(static_cast<std::uint8_t>(c));
  Append(wave, samples, 4);
  for (std::uint64_t i = 0; i < samples; ++i) {
    const bool high = i * 2 * static_cast<std::uint64_t>(frequency) / rate % 2 == 0;
    wave.push_back(high ? 0xA0 : 0x60);
  }
  return wave;
}

class SoundBeeper final : public Beeper {
 public:
  void Beep(int frequency, int milliseconds) override {
    using namespace std::chrono;
    const auto end = steady_clock::now() + std::chrono::milliseconds(milliseconds);
    if (frequency > 0 && milliseconds > 0) {
      const wxLogNull quiet;  // no device is no error
      const std::vector<std::uint8_t> wave = SquareWave(frequency, milliseconds);
      wxSound sound;
      if (sound.Create(wave.size(), wave.data())) sound.Play(wxSOUND_SYNC);
    }
    std::this_thread::sleep_until(end);
  }
};

}  // namespace

std::unique_ptr<Beeper> SystemBeeper() { return std::make_unique<SoundBeeper>(); }

}  // namespace tarvelo
