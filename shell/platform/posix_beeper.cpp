#include <alsa/asoundlib.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <thread>

#include "shell/platform/beeper.h"

namespace tarvelo {
namespace {

constexpr std::int64_t rate = 44100;                  // samples per second
constexpr unsigned buffered = 200000;                 // the device's buffer in microseconds
constexpr std::int64_t headStart = rate * 80 / 1000;  // samples of silence before the first tone

void SayNothing(const char*, int, const char*, int, const char*, ...) {}  // a missing device is not an error

// Plays square waves, as a beeper does. The device stays open from the first tone of a melody to the last, so
// that each tone follows the previous one exactly. The silence at the start is the time that may pass between
// two tones.
class AlsaBeeper final : public Beeper {
 public:
  ~AlsaBeeper() override { Close(); }

  bool BeepOn(int frequency, int milliseconds, const GoOn& goOn) override {
    frequency_ = frequency > 0 && frequency <= rate / 2 ? frequency : 0;
    length_ = rate * std::max(0, milliseconds) / 1000;
    written_ = 0;
    Open();
    const bool whole = Wait(milliseconds, [&] {
      Feed();
      return goOn();
    });
    if (!whole) Close();  // drops what it has not played yet
    return whole;
  }

  // Lets the device finish playing, then releases it.
  void Finish() override {
    snd_pcm_sframes_t left = 0;
    if (pcm_ && snd_pcm_delay(pcm_, &left) == 0)
      std::this_thread::sleep_for(std::chrono::milliseconds(std::clamp(left * 1000 / rate, 0L, 500L)));
    Close();
    isDeaf_ = false;
  }

 private:
  // If the device cannot be opened, does not try again before the next melody.
  void Open() {
    if (pcm_ || isDeaf_) return;
    snd_lib_error_set_handler(SayNothing);
    isDeaf_ = snd_pcm_open(&pcm_, "default", SND_PCM_STREAM_PLAYBACK, SND_PCM_NONBLOCK) < 0;
    if (isDeaf_) pcm_ = nullptr;
    if (pcm_ && snd_pcm_set_params(pcm_, SND_PCM_FORMAT_S16, SND_PCM_ACCESS_RW_INTERLEAVED, 1,
                                   static_cast<unsigned>(rate), 1, buffered) < 0)
      GiveUp();
  }

  void Close() {
    if (pcm_) snd_pcm_close(pcm_);
    pcm_ = nullptr;
  }

  void GiveUp() {
    Close();
    isDeaf_ = true;
  }

  // Gives the device as much of the tone as it accepts now.
  void Feed() {
    int faults = 0;
    while (pcm_ && written_ < length_) {
      const bool isStart = snd_pcm_state(pcm_) == SND_PCM_STATE_PREPARED;
      snd_pcm_sframes_t taken = isStart ? WriteHeadStart() : 0;
      if (taken >= 0) taken = WriteTone();
      if (taken == -EAGAIN || taken == 0) return;
      if (taken > 0) {
        written_ += taken;
        if (isStart) snd_pcm_start(pcm_);
      } else if (++faults > 3 || snd_pcm_recover(pcm_, static_cast<int>(taken), 1) < 0) {
        GiveUp();
      }
    }
  }

  snd_pcm_sframes_t WriteHeadStart() {
    static constexpr std::array<std::int16_t, headStart> silence{};
    return snd_pcm_writei(pcm_, silence.data(), silence.size());
  }

  snd_pcm_sframes_t WriteTone() {
    constexpr std::int16_t loudness = 0x2000;  // a quarter of full scale
    std::array<std::int16_t, 1024> samples;
    const auto count = std::min<std::int64_t>(length_ - written_, samples.size());
    for (std::int64_t i = 0; i < count; ++i) {
      const bool isFirstHalf = (written_ + i) * frequency_ * 2 / rate % 2 == 0;
      const std::int16_t wave = isFirstHalf ? loudness : -loudness;
      samples[static_cast<std::size_t>(i)] = frequency_ == 0 ? std::int16_t{0} : wave;
    }
    return snd_pcm_writei(pcm_, samples.data(), static_cast<snd_pcm_uframes_t>(count));
  }

  snd_pcm_t* pcm_ = nullptr;
  bool isDeaf_ = false;
  std::int64_t frequency_ = 0;
  std::int64_t length_ = 0;  // of the tone, in samples
  std::int64_t written_ = 0;
};

}  // namespace

std::unique_ptr<Beeper> SystemBeeper() { return std::make_unique<AlsaBeeper>(); }

}  // namespace tarvelo
