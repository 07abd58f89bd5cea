// Compares opening a dump with plainly reading its file. Prints the ratio of the times:
// build/release/bin/tarvelo-bench
#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <fstream>
#include <vector>

#include "bench/scan_bench.h"
#include "core/identification.h"
#include "demo/demo_image.h"

namespace tarvelo {
namespace {

std::filesystem::path DumpFile() {
  static const std::filesystem::path file = [] {
    const auto path = std::filesystem::temp_directory_path() / "tarvelo-bench.bin";
    WriteFile(path, DemoImage(DemoKind::Large), *std::make_unique<NoProgress>());
    return path;
  }();
  return file;
}

// Reads the file into fresh memory with the standard library alone.
void ReadPlain() {
  const std::filesystem::path file = DumpFile();
  const std::size_t size = std::filesystem::file_size(file);
  const auto bytes = std::make_unique_for_overwrite<char[]>(size);
  std::ifstream(file, std::ios::binary).read(bytes.get(), static_cast<std::streamsize>(size));
  benchmark::DoNotOptimize(bytes[size - 1]);
}

void OpenDump() {
  NoProgress progress;
  Fullflash image = Fullflash::Load(DumpFile(), progress);
  const Identification info = Identify(image);
  benchmark::DoNotOptimize(info.Family);
}

void BM_ReadFile(benchmark::State& state) {
  for (auto _ : state) ReadPlain();
}
BENCHMARK(BM_ReadFile)->Unit(benchmark::kMillisecond);

void BM_OpenDump(benchmark::State& state) {
  for (auto _ : state) OpenDump();
}
BENCHMARK(BM_OpenDump)->Unit(benchmark::kMillisecond);

void BM_IdentifyInMemory(benchmark::State& state) {
  Fullflash image{Bytes(DemoImage(DemoKind::Large))};
  for (auto _ : state) benchmark::DoNotOptimize(Identify(image).Family);
}
BENCHMARK(BM_IdentifyInMemory)->Unit(benchmark::kMillisecond);

double Milliseconds(void (*run)()) {
  const auto start = std::chrono::steady_clock::now();
  run();
  return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

// The median of the ratios over several rounds. In each round the two run one after the other, so that both
// see the machine in the same state.
void PrintRatio() {
  constexpr int rounds = 31;
  std::vector<double> ratios;
  for (int i = 0; i < rounds; ++i) {
    const double plain = Milliseconds(ReadPlain);
    ratios.push_back(Milliseconds(OpenDump) / plain);
  }
  std::ranges::nth_element(ratios, ratios.begin() + rounds / 2);
  std::printf("opening 32 MiB takes %.2f times as long as reading the file\n", ratios[rounds / 2]);
}

}  // namespace
}  // namespace tarvelo

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  tarvelo::RegisterScans();
  tarvelo::RegisterDenseSearches();
  benchmark::RunSpecifiedBenchmarks();
  tarvelo::PrintRatio();
  std::filesystem::remove(tarvelo::DumpFile());
}
