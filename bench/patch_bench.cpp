// How long it takes to check a patch document while somebody types in it.
#include <benchmark/benchmark.h>

#include <random>

#include "bench/firmware.h"
#include "core/image_edits.h"
#include "patch/document_check.h"
#include "patch/patch_lines.h"

namespace tarvelo {
namespace {

// Lines of up to 16 bytes at random places: half of them fit, a quarter is applied, a quarter differs.
std::string Lines(const Fullflash& image, int count) {
  std::mt19937 random(1);
  std::string lines;
  for (int i = 0; i < count; ++i) {
    const auto size = static_cast<Offset>(random() % longestPatchLine + 1);
    const auto offset = static_cast<Offset>(random() % static_cast<std::uint32_t>(image.ffEnd() - size));
    const Bytes bytes = image.Region(offset, size);
    std::vector<std::uint8_t> other(bytes.begin(), bytes.end());
    for (std::uint8_t& byte : other) byte ^= 0x55;
    if (i % 4 == 0)
      AppendPatchLines(lines, offset, other, bytes);
    else
      AppendPatchLines(lines, offset, bytes, other);
    if (i % 4 == 1) lines[lines.size() - 2] ^= 1;
    if (i % 4 == 2) lines[lines.size() - 2 * static_cast<std::size_t>(size) - 3] ^= 1;
  }
  return lines;
}

void CheckDocument(benchmark::State& state) {
  static const Fullflash image{Bytes(Firmware(16 << 20))};
  const auto count = static_cast<int>(state.range(0));
  const std::string text = Lines(image, count);
  const ImageEdits edits;
  for (auto _ : state) {
    DocumentCheck check(text, OriginalOf(image, edits));
    while (check.Step(1000)) {
    }
    benchmark::DoNotOptimize(check.Count(LineVerdict::Fits));
  }
  state.counters["goal ms"] = 20.0 * count / 10000;
}
BENCHMARK(CheckDocument)->Arg(10000)->Arg(1000000)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tarvelo
