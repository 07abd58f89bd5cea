#include "bench/ratio.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstring>
#include <ctime>
#include <vector>

namespace tarvelo {
namespace {

// Processor time if the system provides it, because other programs may run in between.
double Seconds(const std::function<void()>& run) {
  const std::clock_t start = std::clock();
  run();
  return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

// Fills the processor's caches with something else.
void EvictCaches() {
  static std::vector<std::uint8_t> other(std::size_t{128} << 20);
  for (std::size_t i = 0; i < other.size(); i += 64) ++other[i];
  benchmark::ClobberMemory();
}

double MedianRatio(const std::function<void()>& pass, const std::function<void()>& work,
                   const std::function<void()>& before) {
  constexpr int rounds = 31;
  std::vector<double> ratios;
  work();  // warm-up
  for (int i = 0; i < rounds; ++i) {
    before();
    const double plain = Seconds(pass);
    before();
    ratios.push_back(plain / Seconds(work));
  }
  std::ranges::nth_element(ratios, ratios.begin() + rounds / 2);
  return ratios[rounds / 2];
}

}  // namespace

double SpeedRatio(const std::function<void()>& pass, const std::function<void()>& work) {
  return MedianRatio(pass, work, [] {});
}

double MemoryRatio(Bytes image, const std::function<void()>& work) {
  const auto pass = [&] { benchmark::DoNotOptimize(std::memchr(image.data(), absentByte, image.size())); };
  return MedianRatio(pass, work, EvictCaches);
}

}  // namespace tarvelo
