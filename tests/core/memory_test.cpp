// How much memory a senseless image makes the explorers take: a fixed small multiple of its size.
#include <gtest/gtest.h>

#include <fstream>
#include <iostream>
#include <sstream>

#include "cli/commands.h"
#include "core/file.h"
#include "images.h"
#include "pictures/picture_search.h"
#include "temporary_folder.h"

// Under a sanitizer the memory is mostly the sanitizer's.
#if defined(_WIN32) || defined(__SANITIZE_ADDRESS__)
#define TARVELO_MEASURES_MEMORY 0
#else
#define TARVELO_MEASURES_MEMORY 1
#include <sys/resource.h>
#endif

namespace tarvelo {
namespace {

using Fill = void (*)(ImageBuilder& image);

ImageBuilder Filled(Fill fill, std::size_t size) {
  ImageBuilder image(size);
  fill(image);
  return image;
}

// A picture table that has entries up to the image's end.
void PictureTableWithoutEnd(ImageBuilder& image) {
  for (std::size_t p = 0; p + 8 <= image.Size(); p += 8) {
    image.DWord(p, 0x00050404);
    image.Pointer(p + 4, 0x100);
  }
  image.Byte(2, 1);
}

// A header outside the tables every four bytes: the pointer of each is the next one, and leads into an
// image of 16 MiB.
void HeadersThatOverlap(ImageBuilder& image) {
  for (std::size_t p = 0; p + 4 <= image.Size(); p += 4) image.DWord(p, 0x00810000 + 0x0808);
  for (const std::size_t p : {0, 8}) {
    image.DWord(p, 0x00010404);
    image.Pointer(p + 4, 0x100);
  }
  image.DWord(16, 0xFFFFFFFF);
}

#if TARVELO_MEASURES_MEMORY

// All numbers, and the melody of each has all that is behind the table.
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

long PeakKiB() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return usage.ru_maxrss;
}

// Ends the process: with 0 where a command took no more than eight times the image and 8 MiB.
[[noreturn]] void Measure(const std::vector<std::string>& arguments, std::size_t imageSize) {
  std::ofstream out("/dev/null");
  const long before = PeakKiB();
  cli::Run(arguments, out, out);
  const long taken = PeakKiB() - before;
  if (taken * 1024 > static_cast<long>(8 * imageSize + 0x800000)) {
    std::cerr << taken << " KiB";
    std::exit(1);
  }
  std::exit(0);
}

TEST(Memory, EveryListTakesASmallMultipleOfTheImage) {
  const TemporaryFolder folder;
  const struct {
    Fill fill;
    std::size_t size;
    std::vector<std::string> commands;
  } cases[] = {
      {PictureTableWithoutEnd, 0x100000, {"list pictures", "list pictures --json", "map"}},
      {HeadersThatOverlap, 0x1000000, {"map"}},
      {MelodiesThatOverlap, 0x100000, {"list ringtones", "list ringtones --json", "map"}},
      {RunsAndFilling, 0x100000, {"map", "map --json"}},
  };
  for (const auto& [fill, size, commands] : cases) {
    const std::string file = PathText(folder.Write("image.bin", Filled(fill, size).Take()));
    for (const std::string& command : commands) {
      std::istringstream words(command);
      std::vector<std::string> arguments{std::istream_iterator<std::string>(words), {}};
      arguments.push_back(file);
      EXPECT_EXIT(Measure(arguments, size), testing::ExitedWithCode(0), "") << command;
    }
  }
}

#endif

// That the images above are what they are meant to be.
TEST(Memory, SenselessTablesAreListedWhole) {
  const auto count = [](Fill fill, std::size_t size) {
    return GetP(ImageOf(Filled(fill, size)), noProgress).pictures.size();
  };
  EXPECT_EQ(count(PictureTableWithoutEnd, 0x200000), 0x200000u / 8);
  EXPECT_GT(count(HeadersThatOverlap, 0x1000000), 0x1000000u / 4 - 10);
}

}  // namespace
}  // namespace tarvelo
