#include "ringtones/wave_file.h"

#include <string_view>

namespace tarvelo {
namespace {

void Add(std::vector<std::uint8_t>& file, std::string_view text) {
  file.insert(file.end(), text.begin(), text.end());
}

void LittleEndian(std::vector<std::uint8_t>& file, std::size_t value, int bytes) {
  for (int i = 0; i < bytes; ++i) file.push_back(static_cast<std::uint8_t>(value >> 8 * i));
}

}  // namespace

std::vector<std::uint8_t> WaveFile(std::span<const std::uint8_t> samples, std::uint32_t rate) {
  constexpr std::size_t headSize = 36;  // behind the first eight bytes, up to the samples
  const std::size_t filling = samples.size() % 2;
  std::vector<std::uint8_t> file;
  file.reserve(8 + headSize + samples.size() + filling);
  Add(file, "RIFF");
  LittleEndian(file, headSize + samples.size() + filling, 4);
  Add(file, "WAVEfmt ");
  LittleEndian(file, 16, 4);
  LittleEndian(file, 1, 2);     // plain samples
  LittleEndian(file, 1, 2);     // mono
  LittleEndian(file, rate, 4);  // samples a second
  LittleEndian(file, rate, 4);  // bytes a second
  LittleEndian(file, 1, 2);     // bytes a sample
  LittleEndian(file, 8, 2);     // bits a sample
  Add(file, "data");
  LittleEndian(file, samples.size(), 4);
  file.insert(file.end(), samples.begin(), samples.end());
  if (filling != 0) file.push_back(0);
  return file;
}

}  // namespace tarvelo
