// Images for tests, the structures that firmware puts into them, and the arguments that every scan needs.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "core/byte_text.h"
#include "core/dump.h"
#include "core/fullflash.h"
#include "core/identification.h"
#include "core/progress.h"
#include "image_builder.h"

namespace tarvelo {

using Data = std::vector<std::uint8_t>;

// Bytes in hexadecimal digits, with or without blanks between them.
inline Data operator""_hex(const char* digits, std::size_t size) { return ReadHex({digits, size}).value(); }

inline NoProgress noProgress;

// A user who stops a run after some positions.
struct Impatient final : Progress {
  explicit Impatient(int most) : patience(most) {}
  void Start(std::int64_t, std::int64_t) override {}
  void At(std::int64_t) override { ++positions; }
  void Finish() override { ++finished; }
  bool StopAsked() override { return positions >= patience; }

  int patience, positions = 0, finished = 0;
};

inline constexpr std::size_t mebi = 0x100000;

inline Fullflash ImageOf(ImageBuilder builder) { return Fullflash(Bytes(std::move(builder).Take())); }

inline Dump DumpOf(ImageBuilder builder) {
  Dump dump{ImageOf(std::move(builder)), {}, {}};
  dump.info = Identify(dump.image);
  return dump;
}

// An image of erased bytes.
inline Fullflash Erased(std::size_t size) { return ImageOf(ImageBuilder(size)); }

// A firmware header of version 24 at the first place that is searched for one.
inline void PutHeader(ImageBuilder& image, std::string_view model) {
  const std::size_t signature = image.PageMode() ? 0x7FF80 : 0x8FC80;
  const std::size_t header = signature & ~std::size_t{0xFF};
  image.Byte(header + 0x50, 0x24);
  image.Text(header + 0x60, "FD-02");
  image.Text(header + 0x70, model);
  image.Text(signature, "SIEMENS");
}

// The header of an EEPROM block with V 0.
inline void PutBlock(ImageBuilder& image, std::size_t header, std::uint8_t state, std::uint16_t number,
                     std::size_t data, std::uint16_t size) {
  image.Word(image.Byte(image.Byte(header, state), 0), size);
  image.Word(image.DWord(header + 4, image.Address(data)), number);
  image.Byte(header + 11, state);
}

// An entry of a picture table, or a header outside one. Returns the offset of the next one.
inline std::size_t PutPicture(ImageBuilder& image, std::size_t at, std::uint8_t width, std::uint8_t height,
                              std::uint8_t type, std::size_t data) {
  return image.Pointer(image.Data(at, Data{width, height, type, 0}), data);
}

// An entry of a ringtone table. Returns the offset of the next one.
inline std::size_t PutRingtone(ImageBuilder& image, std::size_t at, std::uint8_t number, std::uint8_t kind,
                               std::size_t target) {
  return image.Pointer(image.Data(at, Data{number, 0, kind, 0}), target);
}

}  // namespace tarvelo
