#include "crafted_images.h"

#include <random>

#include "eeprom/block_store.h"

namespace tarvelo {
namespace {

// Nine pictures in a table, the last one packed, and one outside it.
void PutPictures(ImageBuilder& image, std::size_t at) {
  const bool isPage = image.PageMode();
  const std::uint8_t side = isPage ? 4 : 0x34, type = isPage ? 1 : 0x88;
  std::size_t next = PutPicture(image, at, side, side, type, at + 0x200);
  for (std::uint8_t i = 1; i < 8; ++i) next = PutPicture(image, next, 8, i, type, at + 0x200u + 16u * i);
  next = PutPicture(image, next, 16, 9, isPage ? 0x81 : 0x88, at + 0x300);
  image.DWord(next, 0);
  PutPicture(image, at + 0x100, 9, 9, 0x81, at + 0x200);
  for (std::size_t p = 0x200; p < 0x400; p += 4) image.DWord(at + p, 0x02FF7F00u + static_cast<unsigned>(p));
}

// Seven ringtones; one of them is a file reached through a second pointer.
void PutRingtones(ImageBuilder& image, std::size_t at) {
  for (std::uint8_t number = 0; number < 7; ++number)
    PutRingtone(image, at + 8u * number, number, number == 6 ? 7 : 2, at + (number == 6 ? 0x180 : 0x100));
  image.Byte(at + 7 * 8 + 2, 0x10);  // a kind that ends the table
  image.DWord(image.DWord(at + 0x100, 0x006401B8), 0x0064FFFC);
  image.Pointer(at + 0x180, at + 0x190);
  image.Text(image.DWord(image.Text(at + 0x190, "RIFF") - 1, 4), "WAVE");
}

// Two functions: a pointer names one, which calls the other.
void PutFunctions(ImageBuilder& image, std::size_t at) {
  const auto segment = static_cast<std::uint8_t>(image.Address(at) >> 16);
  const auto callee = static_cast<std::uint16_t>(image.Address(at + 0x10));
  const std::size_t call = image.Data(at, Data{0xDA, segment});
  image.Data(image.Word(call, callee), Data{0xDB, 0});
  image.Data(at + 0x10, Data{0xDB, 0});
  image.Word(image.Word(at + 0x20, static_cast<std::uint16_t>(image.Address(at))), segment);
}

void SomethingOfEachKind(ImageBuilder& image) {
  image.Fill(0x1000, 0xE000, 0x90);
  PutHeader(image, "C55");
  constexpr std::uint16_t numbers[] = {71, 5076, 5076, 5165, 999};
  for (std::size_t i = 0; image.PageMode() && i < std::size(numbers); ++i)
    PutBlock(image, 0x1000 + 12 * i, i == 1 ? deletedBlockState : liveBlockState, numbers[i],
             0x90000 + 0x100 * i, 0x40);
  image.Fill(0x90000, 0x500, 'a');
  PutPictures(image, 0x2000);
  PutRingtones(image, 0x3000);
  PutFunctions(image, 0xF000);
  image.Text(0x20000, "T9");
  image.DWord(0x20004, 0x1000);
  for (std::size_t p = 0x4000; p < 0x4300; p += 12) image.Text(p, "Some text 1");
  for (std::size_t p = 0x5000; p < 0x6000; p += 64) image.Word(p, 0x00DB);
}

// A table with all numbers; the melody of each extends over everything after the table.
void MelodiesThatOverlap(ImageBuilder& image) {
  image.Fill(0, image.Size(), 0xFA);
  for (std::size_t number = 0; number < 256; ++number) {
    image.DWord(0x40 + 8 * number, static_cast<std::uint32_t>(number));
    image.Pointer(0x44 + 8 * number, 0x1000 + 4 * number);
  }
}

void RunsAndFilling(ImageBuilder& image) {
  for (std::size_t p = 0; p + 4 <= image.Size(); p += p % 1024 == 0 ? 260 : 4) image.DWord(p, 0x02FFFF01);
}

// As many blocks as the limit allows, including deleted ones; most lie outside the image.
void ManyBlocks(ImageBuilder& image) {
  for (std::size_t i = 0; i < mostBlocks; ++i)
    PutBlock(image, 12 * i, i % 3 == 0 ? deletedBlockState : liveBlockState,
             static_cast<std::uint16_t>(5001 + i % 999), 0x8000 + 0x20 * i, 0x30);
}

// Bytes common in headers and tables.
void UsualBytes(ImageBuilder& image) {
  constexpr std::uint8_t usual[] = {0, 0, 0, 1, 2, 4, 4, 0x81, 0x34, 0xFF, 0xFC, 0xF6, 'T', '9'};
  std::mt19937 random(3);
  for (std::size_t p = 0; p < image.Size(); ++p) image.Byte(p, usual[random() % std::size(usual)]);
}

constexpr CraftedImage crafted[] = {
    {"something of each kind", 0x100000, SomethingOfEachKind},
    {"a large image", 0x1000010, SomethingOfEachKind},
    {"many blocks", 0x20000, ManyBlocks},
    {"a picture table without end", 0x100000, PictureTableWithoutEnd},
    {"headers that overlap", 0x1000000, HeadersThatOverlap},
    {"melodies that overlap", 0x100000, MelodiesThatOverlap},
    {"runs and filling", 0x100000, RunsAndFilling},
    {"usual bytes", 0x40000, UsualBytes},
};

}  // namespace

std::span<const CraftedImage> CraftedImages() { return crafted; }

void PictureTableWithoutEnd(ImageBuilder& image) {
  for (std::size_t p = 0; p + 8 <= image.Size(); p += 8) {
    image.DWord(p, 0x00050404);
    image.Pointer(p + 4, 0x100);
  }
  image.Byte(2, 1);
}

void HeadersThatOverlap(ImageBuilder& image) {
  for (std::size_t p = 0; p + 4 <= image.Size(); p += 4) image.DWord(p, 0x00810000 + 0x0808);
  for (const std::size_t p : {0, 8}) {
    image.DWord(p, 0x00010404);
    image.Pointer(p + 4, 0x100);
  }
  image.DWord(16, 0xFFFFFFFF);
}

}  // namespace tarvelo
