#include "bench/scan_bench.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <vector>

#include "demo/demo_image.h"
#include "media/picture_search.h"

namespace tarvelo {
namespace {

double Seconds(const std::function<void()>& run) {
  const auto start = std::chrono::steady_clock::now();
  run();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

// Firmware of 16 MiB with page pointers, or of 64 with linear ones: the demonstration twice, without the
// byte that the memory pass looks for and without picture tables.
std::vector<std::uint8_t> Firmware(bool large) {
  std::vector<std::uint8_t> image = DemoImage(large);
  const std::vector<std::uint8_t> half = image;
  image.insert(image.end(), half.begin(), half.end());
  std::ranges::replace(image, 0xA5, 0xA4);
  std::ranges::replace(image, large ? 0x34 : 0x04, 0x35);
  return image;
}

void PrintPictureScans() {
  NoProgress progress;
  const Fullflash noTable{Bytes(Firmware(true))};
  PrintScanRatio("picture tables", noTable.ff(), [&] { (void)GetP(noTable, progress); });
  // A table of monochrome pictures at the start: all the rest is looked through for headers.
  std::vector<std::uint8_t> image = Firmware(false);
  const std::uint8_t table[] = {4, 4, 1, 0, 0, 0, 0, 0, 8, 8, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0};
  std::ranges::copy(table, image.begin());
  const Fullflash monochrome{Bytes(image)};
  PrintScanRatio("pictures behind a table", monochrome.ff(), [&] { (void)GetP(monochrome, progress); });
}

}  // namespace

void PrintScanRatio(const char* name, Bytes image, const std::function<void()>& scan) {
  constexpr int rounds = 15;
  std::vector<double> ratios;
  const auto pass = [&] { benchmark::DoNotOptimize(std::memchr(image.data(), 0xA5, image.size())); };
  for (int i = 0; i < rounds; ++i) {
    const double memory = Seconds(pass);
    ratios.push_back(memory / Seconds(scan));
  }
  std::ranges::nth_element(ratios, ratios.begin() + rounds / 2);
  std::printf("%-24s %.2f of the speed of memory\n", name, ratios[rounds / 2]);
}

void PrintScanRatios() { PrintPictureScans(); }

}  // namespace tarvelo
