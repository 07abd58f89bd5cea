#include <wx/log.h>
#include <wx/sound.h>

#include <chrono>
#include <cstdint>
#include <thread>
#include <vector>

#include "media/wave_file.h"
#include "shell/platform/beeper.h"

namespace tarvelo {
namespace {

constexpr std::uint32_t rate = 44100;  // samples a second

// A square wave, as a beeper sounds.
std::vector<std::uint8_t> SquareWave(int frequency, int milliseconds) {
  const std::uint32_t count = rate / 1000 * static_cast<std::uint32_t>(milliseconds);
  std::vector<std::uint8_t> samples;
  for (std::uint64_t i = 0; i < count; ++i) {
    const bool high = i * 2 * static_cast<std::uint64_t>(frequency) / rate % 2 == 0;
    samples.push_back(high ? 0xA0 : 0x60);
  }
  return WaveFile(samples, rate);
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
