#include "ringtones/wave_file.h"

#include "core/byte_writer.h"

namespace tarvelo {

ByteBuffer WaveFile(std::span<const std::uint8_t> samples, std::uint32_t rate) {
  constexpr std::size_t headSize = 36;  // from behind the first eight bytes to the samples
  const std::size_t filling = samples.size() % 2;
  ByteBuffer file;
  file.reserve(8 + headSize + samples.size() + filling);
  AppendText(file, "RIFF");
  AppendDWord(file, headSize + samples.size() + filling);
  AppendText(file, "WAVEfmt ");
  AppendDWord(file, 16);
  AppendWord(file, 1);      // plain samples
  AppendWord(file, 1);      // mono
  AppendDWord(file, rate);  // samples per second
  AppendDWord(file, rate);  // bytes per second
  AppendWord(file, 1);      // bytes per sample
  AppendWord(file, 8);      // bits per sample
  AppendText(file, "data");
  AppendDWord(file, samples.size());
  AppendBytes(file, samples);
  if (filling != 0) file.push_back(0);
  return file;
}

}  // namespace tarvelo
