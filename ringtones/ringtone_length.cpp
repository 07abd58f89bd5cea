#include "ringtones/ringtone_length.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <vector>

namespace tarvelo {
namespace {

// The size of a chunk's name and size field.
constexpr Offset chunkHead = 8;
constexpr int mostWaveChunks = 1000;
constexpr Offset mostTimedMidi = 0x100000;

// Whether a chunk of this name begins at an offset, with its size field inside the bytes.
bool HasChunk(Bytes file, Offset at, std::string_view name) {
  if (at > static_cast<Offset>(file.size()) - chunkHead) return false;
  const Bytes there = file.subspan(static_cast<std::size_t>(at), name.size());
  return std::equal(there.begin(), there.end(), name.begin(), name.end());
}

Offset BigEndian(Bytes file, Offset at, int bytes) {
  Offset value = 0;
  for (int i = 0; i < bytes; ++i) value = value << 8 | ByteAt(file, at + i);
  return value;
}

std::int64_t Nearest(std::int64_t dividend, std::int64_t divisor) {
  return (dividend + divisor / 2) / divisor;
}

// `wave` ends with the file.
std::int64_t TimeOfWave(Bytes wave) {
  const auto end = static_cast<Offset>(wave.size());
  Offset rate = 0;
  Offset data = 0;
  Offset p = 12;
  for (int i = 0; i < mostWaveChunks && p <= end - chunkHead && (rate == 0 || data == 0); ++i) {
    const Offset size = DWordAt(wave, p + 4);
    const Offset content = p + chunkHead;
    if (HasChunk(wave, p, "fmt ") && size >= 12 && content <= end - 12) rate = DWordAt(wave, content + 8);
    if (HasChunk(wave, p, "data")) data = std::min(size, end - content);
    p = content + size + size % 2;
  }
  return rate == 0 ? 0 : Nearest(data * 1000, rate);
}

// The duration of a quarter note from a tick on.
struct Tempo {
  std::int64_t tick = 0;
  std::int64_t microseconds = 0;
};

// Follows the events of one track.
class Track {
 public:
  explicit Track(Bytes events) : events_(events) {}

  // Adds the tempo changes. Returns the tick of the last event.
  std::int64_t Read(std::vector<Tempo>& tempos) {
    // Keeps ticks times microseconds within 64 bits. At any plausible tempo this is years.
    constexpr std::int64_t latest = std::int64_t{1} << 36;
    while (!ended_) {
      const std::optional<Offset> delta = Quantity();
      const std::int64_t before = tick_;
      tick_ = std::min(tick_ + delta.value_or(0), latest);
      if (!delta || !ReadEvent(tempos)) return before;
    }
    return tick_;
  }

 private:
  [[nodiscard]] bool Has(Offset bytes) const { return bytes <= static_cast<Offset>(events_.size()) - p_; }

  // Reads a number of at most four bytes: seven bits per byte, the highest first. All bytes but the last have
  // bit 7 set.
  std::optional<Offset> Quantity() {
    Offset value = 0;
    for (int i = 0; i < 4 && Has(1); ++i) {
      const std::uint8_t byte = ByteAt(events_, p_++);
      value = value << 7 | (byte & 0x7F);
      if (byte < 0x80) return value;
    }
    return {};
  }

  bool Skip(std::optional<Offset> bytes) {
    if (!bytes || !Has(*bytes)) return false;
    p_ += *bytes;
    return true;
  }

  // Reads an event. Returns whether it was complete and of a known form.
  bool ReadEvent(std::vector<Tempo>& tempos) {
    if (!Has(1)) return false;
    std::uint8_t status = ByteAt(events_, p_);
    if (status >= 0x80)
      ++p_;
    else
      status = running_;
    if (status == 0xFF) return ReadMeta(tempos);
    if (status == 0xF0 || status == 0xF7) return Skip(Quantity());
    if (status < 0x80 || status > 0xF0) return false;
    running_ = status;
    const bool hasOneByte = (status & 0xE0) == 0xC0;  // 0xC0 and 0xD0: program, pressure
    return Skip(hasOneByte ? 1 : 2);
  }

  bool ReadMeta(std::vector<Tempo>& tempos) {
    constexpr std::uint8_t endOfTrack = 0x2F;
    constexpr std::uint8_t setTempo = 0x51;
    if (!Has(1)) return false;
    const std::uint8_t type = ByteAt(events_, p_++);
    const std::optional<Offset> size = Quantity();
    const Offset content = p_;
    if (!Skip(size)) return false;
    if (type == setTempo && size == 3) tempos.push_back({tick_, BigEndian(events_, content, 3)});
    ended_ = type == endOfTrack;
    return true;
  }

  Bytes events_;
  Offset p_ = 0;
  std::int64_t tick_ = 0;
  std::uint8_t running_ = 0;
  bool ended_ = false;
};

// The time for a division in film frames: the high byte holds the negated frames per second, the low byte the
// ticks per frame.
std::int64_t TimeOfFrames(std::int64_t ticks, int division) {
  const int frames = 0x100 - (division >> 8);
  const int ticksOfFrame = division & 0xFF;
  if (ticksOfFrame == 0) return 0;
  switch (frames) {
    case 24:
    case 25:
    case 30: return Nearest(ticks * 1000, std::int64_t{frames} * ticksOfFrame);
    case 29: return Nearest(ticks * 1001, std::int64_t{30} * ticksOfFrame);  // 30 frames in 1.001 seconds
    default: return 0;
  }
}

// The time of tracks that play together.
std::int64_t TimeOfTracks(std::span<const Bytes> tracks, int division) {
  std::vector<Tempo> tempos{{0, 500000}};
  std::int64_t end = 0;
  for (const Bytes track : tracks) end = std::max(end, Track(track).Read(tempos));
  if (division >= 0x8000) return TimeOfFrames(end, division);
  if (division == 0) return 0;
  std::ranges::stable_sort(tempos, {}, &Tempo::tick);
  std::int64_t sum = 0;  // ticks times microseconds
  for (std::size_t i = 0; i < tempos.size(); ++i) {
    const std::int64_t until = i + 1 < tempos.size() ? tempos[i + 1].tick : end;
    sum += (until - tempos[i].tick) * tempos[i].microseconds;
  }
  return Nearest(sum, std::int64_t{1000} * division);
}

}  // namespace

FileLength LengthOfWave(Bytes file) {
  if (!HasChunk(file, 0, "RIFF")) return {};
  const Offset size = std::min(Offset{DWordAt(file, 4)} + chunkHead, static_cast<Offset>(file.size()));
  const Bytes wave = file.first(static_cast<std::size_t>(size));
  constexpr std::string_view name = "WAVE";
  const bool isWave = size >= 12 && std::equal(name.begin(), name.end(), wave.begin() + 8);
  return {size, isWave ? TimeOfWave(wave) : 0};
}

FileLength LengthOfMidi(Bytes file) {
  constexpr Offset headContent = 6;
  const auto end = static_cast<Offset>(file.size());
  if (!HasChunk(file, 0, "MThd") || end < chunkHead + headContent) return {};
  const Offset headSize = BigEndian(file, 4, 4);
  if (headSize < headContent) return {};
  const Offset format = BigEndian(file, 8, 2);
  const Offset trackCount = BigEndian(file, 10, 2);
  const auto division = static_cast<int>(BigEndian(file, 12, 2));

  std::vector<Bytes> tracks;
  Offset p = std::min(chunkHead + headSize, end);
  while (static_cast<Offset>(tracks.size()) < trackCount && HasChunk(file, p, "MTrk")) {
    const Offset size = std::min(BigEndian(file, p + 4, 4), end - p - chunkHead);
    tracks.push_back(file.subspan(static_cast<std::size_t>(p + chunkHead), static_cast<std::size_t>(size)));
    p += chunkHead + size;
  }
  FileLength length{p, 0};
  if (p > mostTimedMidi) return length;
  if (format != 2)
    length.time = TimeOfTracks(tracks, division);
  else
    for (const Bytes& track : tracks) length.time += TimeOfTracks({&track, 1}, division);
  return length;
}

}  // namespace tarvelo
