#include "bench/firmware.h"

#include <algorithm>
#include <array>

#include "bench/ratio.h"
#include "demo/demo_random.h"
#include "tests/files/volume_builder.h"

namespace tarvelo {
namespace {

constexpr std::size_t blockSize = 0x10000;

// Instructions of two and four bytes as compilers emit them; `any` marks random bytes.
constexpr std::uint8_t any = 0x5A;
constexpr std::array<std::array<std::uint8_t, 4>, 16> instructions{{{0xE6, 0xFC, any, any},
                                                                    {0xE6, 0xFD, any, 0x00},
                                                                    {0xE6, 0xF4, any, any},
                                                                    {0xF2, 0xF4, any, any},
                                                                    {0xF6, 0xF4, any, any},
                                                                    {0xDA, any, any, any},
                                                                    {0xD7, 0x40, any, 0x00},
                                                                    {0xF0, any, 0x08, 0x02},
                                                                    {0x88, any, 0x98, any},
                                                                    {0x3D, any, 0x0D, any},
                                                                    {0xDB, 0x00, 0x00, 0x00},
                                                                    {0x46, 0xF4, any, 0x00},
                                                                    {0xD4, 0xC0, any, 0x00},
                                                                    {0xE0, 0x0C, 0xE0, 0x1D},
                                                                    {0xF7, 0xF8, any, 0xFF},
                                                                    {0x66, 0xFC, 0xFF, any}}};

constexpr std::array<std::uint8_t, 8> hit{0xE6, 0xFC, 0x41, 0x00, 0xE6, 0xFC, 0xE6, 0x12};
constexpr std::array<std::uint8_t, 6> erasedHit{0xFF, 0xFF, 0x07, 0xFF, 0xFF, 0x00};

class Writer {
 public:
  Writer(std::size_t size, const FirmwareContents& contents) : image_(size), contents_(contents) {}

  std::vector<std::uint8_t> Write() && {
    for (std::size_t block = 0; block < image_.Size() / blockSize; ++block) WriteBlock(block);
    WriteHeader();
    if (contents_.monochromeTable) WritePictures(0x100, 50, 1);
    const std::size_t tables = image_.Size() - 2 * blockSize;
    if (contents_.colourTable) WritePictures(tables, 200, image_.PageMode() ? 5 : 8);
    if (contents_.ringtones) WriteRingtones(tables + 0x4000);
    if (contents_.eeprom) WriteEeprom(tables + blockSize);
    if (contents_.files) WriteFiles();
    std::vector<std::uint8_t> bytes = std::move(image_).Take();
    std::ranges::replace(bytes, absentByte, std::uint8_t{0xA4});
    return bytes;
  }

 private:
  // Of every 16 blocks, 4 are erased, 1 is text, 2 are random, 9 are code.
  void WriteBlock(std::size_t block) {
    const std::size_t start = block * blockSize;
    const std::size_t kind = block % 16;
    if (kind >= 12) return;
    for (std::size_t p = start; p < start + blockSize;)
      p = kind == 3 ? Text(p) : kind == 5 || kind == 9 ? Noise(p) : Code(p);
    image_.Data(start + 0x1000 + random_.Below(0xE000), hit);
    image_.Data(start + 0x400 + random_.Below(0x800), erasedHit);
  }

  std::size_t Code(std::size_t p) {
    for (const std::uint8_t b : instructions[random_.Below(instructions.size())])
      p = image_.Byte(p, b == any ? random_.Byte() : b);
    return p;
  }

  std::size_t Text(std::size_t p) {
    return image_.Byte(
        p, random_.Below(8) == 0 ? std::uint8_t{0} : static_cast<std::uint8_t>('a' + random_.Below(26)));
  }

  std::size_t Noise(std::size_t p) { return image_.Byte(p, random_.Byte()); }

  void WriteHeader() {
    const std::size_t header = image_.PageMode() ? 0x7FF00 : 0x8FC00;
    image_.Fill(header, 0x100, 0);
    image_.Text(header + 0x60, "Bench");
    image_.Text(header + 0x70, "C60");  // this model's whole image is searched for EEPROM blocks
    image_.Text(header + 0x80, "SIEMENS");
    if (!image_.PageMode()) return;
    image_.Text(0x60000, "T9");
    image_.DWord(0x60004, 0x1F000);
    image_.Fill(0x70000, 0xFF00, 0x31);
  }

  // Pictures of 64 x 40 that share a block of noise.
  void WritePictures(std::size_t at, std::size_t count, std::uint8_t type) {
    const bool page = image_.PageMode();
    Picture(at, page ? 4 : 0x34, page ? 1 : 0x88);
    for (std::size_t i = 1; i <= count; ++i)
      Picture(at + 8 * i, 64, i % 2 == 0 ? type : static_cast<std::uint8_t>(type | 0x80), 40);
    image_.DWord(at + 8 * (count + 1), 0xFFFFFFFF);
    if (type != 1) return;
    for (std::size_t block = 1; block < image_.Size() / blockSize; block += 16)
      Picture(block * blockSize + 0x200, 40, 0x81, 20);
  }

  void Picture(std::size_t at, std::uint8_t width, std::uint8_t type, std::uint8_t height = 0) {
    image_.Byte(at, width);
    image_.Byte(at + 1, height == 0 ? width : height);
    image_.Byte(at + 2, type);
    image_.Byte(at + 3, 0);
    image_.Pointer(at + 4, 5 * blockSize + random_.Below(0x8000));
  }

  void WriteRingtones(std::size_t at) {
    constexpr std::uint8_t count = 60;
    const std::size_t melodies = 13 * blockSize;  // linear pointers reach only 32 MiB
    for (std::uint8_t number = 0; number < count; ++number) {
      const std::size_t melody = melodies + number * 0x200u;
      image_.DWord(at + 8u * number, number);
      image_.Pointer(at + 8u * number + 4, melody);
      for (std::size_t p = melody; p < melody + 0x1F0; p += 4)
        image_.DWord(p, 0x00300000 + random_.Below(2000));
      image_.DWord(melody + 0x1F0, 0xFFFC);
    }
    image_.DWord(at + 8u * count, 0xFFFFFFFF);
  }

  void WriteEeprom(std::size_t at) {
    image_.Fill(at, blockSize, 0xFF);
    for (std::uint32_t i = 0; i < 400; ++i, at += 12) {
      const std::uint8_t state = i % 3 == 0 ? 0xF0 : 0xFC;
      image_.DWord(at, 0x00200100u | state);
      image_.DWord(at + 4, 0x00F80000 + 0x40 * i);
      image_.DWord(at + 8, 0x00FF0000u | static_cast<std::uint32_t>(state) << 24 | (1 + i % 300));
    }
  }

  // Files of 3 KB in pieces of 1 KB, in a folder for each unit.
  void WriteFiles() {
    VolumeBuilder files(image_, "FFS");
    std::vector<std::size_t> units;
    for (std::size_t block = 14; block < image_.Size() / blockSize; block += 16)
      for (const std::size_t erased : {block - 1, block}) units.push_back(files.Unit(erased * blockSize));
    constexpr int filesOfUnit = 16, numbersOfUnit = 2 + 6 * filesOfUnit;
    const std::string piece(1000, 'f');
    std::vector<int> folders;
    for (const std::size_t unit : units) {
      const int folder = folders.emplace_back(8 + numbersOfUnit * static_cast<int>(unit));
      std::vector<int> members;
      for (int file = 0; file < filesOfUnit; ++file) {
        const int number = members.emplace_back(folder + 2 + 6 * file);
        files.File(unit, {.number = number, .parent = folder, .name = "picture.bmp", .next = number + 2},
                   piece);
        files.File(unit, {.number = number + 2, .next = number + 4}, piece);
        files.File(unit, {.number = number + 4}, piece);
      }
      files.Folder(unit, {.number = folder, .name = "Folder"}, members);
    }
    files.Folder(0, {.number = 6}, folders);
    files.Map(image_.Size() - 17 * blockSize);
  }

  ImageBuilder image_;
  FirmwareContents contents_;
  Random random_{7};
};

}  // namespace

std::vector<std::uint8_t> Firmware(std::size_t size, const FirmwareContents& contents) {
  return Writer(size, contents).Write();
}

}  // namespace tarvelo
