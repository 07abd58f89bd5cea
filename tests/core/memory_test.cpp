// The memory that explorers need for a malformed image: a small fixed multiple of its size.
#include <gtest/gtest.h>

#include <fstream>
#include <iostream>

#include "cli/commands.h"
#include "core/file.h"
#include "crafted_images.h"
#include "document/explorers.h"
#include "images.h"
#include "pictures/picture_search.h"
#include "temporary_folder.h"

// Under a sanitizer most of the memory is the sanitizer's.
#if defined(_WIN32) || defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define TARVELO_MEASURES_MEMORY 0
#else
#define TARVELO_MEASURES_MEMORY 1
#include <sys/resource.h>
#endif

namespace tarvelo {
namespace {

#if TARVELO_MEASURES_MEMORY

long PeakKiB() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return usage.ru_maxrss;
}

// Ends the process: with status 0 if the command took at most eight times the image's size plus 8 MiB.
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

using Words = std::vector<std::string>;

TEST(Memory, EveryListTakesASmallMultipleOfTheImage) {
  std::vector<Words> commands{{"map"}, {"map", "--json"}};
  for (const Explorer* explorer : Explorers()) {
    const std::string key(explorer->key);
    commands.insert(commands.end(), {{"list", key}, {"list", key, "--json"}});
    if (explorer->hasDeleted) commands.push_back({"list", key, "--deleted"});
  }
  const TemporaryFolder folder;
  for (const CraftedImage& image : CraftedImages()) {
    const std::string file = PathText(folder.Write("image.bin", image.Build().Take()));
    for (Words command : commands) {
      command.push_back(file);
      EXPECT_EXIT(Measure(command, image.size), testing::ExitedWithCode(0), "")
          << image.name << ": " << testing::PrintToString(command);
    }
  }
}

// Each unit of these texts is three digits or more in JSON; a tag of the language pack is four units.
TEST(Memory, ADecodedTextTakesEightTimesItsBytes) {
  Data bytes(0x400000, 0x80);
  bytes[bytes.size() - 2] = 0x00;
  bytes.back() = 0xFF;
  const TemporaryFolder folder;
  const std::string file = PathText(folder.Write("image.bin", bytes));
  for (const char* codec : {"GetStr", "GetSiem", "GetUniFF", "MessageHard"})
    EXPECT_EXIT(Measure({"decode", codec, file, "0"}, bytes.size()), testing::ExitedWithCode(0), "") << codec;
}

#endif

// Checks that the crafted images trigger what they were made for.
TEST(Memory, TablesWithoutEndAreListedWhole) {
  const auto count = [](void (*fill)(ImageBuilder&), std::size_t size) {
    ImageBuilder image(size);
    fill(image);
    return GetP(ImageOf(std::move(image)), noProgress).pictures.size();
  };
  EXPECT_EQ(count(PictureTableWithoutEnd, 0x200000), 0x200000u / 8);
  EXPECT_GT(count(HeadersThatOverlap, 0x1000000), 0x1000000u / 4 - 10);
}

}  // namespace
}  // namespace tarvelo
