// How long it takes to pair the code of two firmware versions and to carry patches over between them.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <random>
#include <utility>
#include <vector>

#include "port/port.h"
#include "tests/versions/firmware_versions.h"

namespace tarvelo {
namespace {

constexpr int functions = 20000;

struct Version {
  explicit Version(std::vector<std::uint8_t> bytes) : image(Bytes(bytes)) {
    NoProgress progress;
    units = GetCodeUnits(image, GetFunctions(image, progress));
  }
  [[nodiscard]] std::uint32_t Base() const { return image.PhoneAddress(0); }

  Fullflash image;
  CodeUnits units;
};

struct Versions {
  Versions(std::vector<std::uint8_t> before, std::vector<std::uint8_t> after)
      : old(std::move(before)), now(std::move(after)) {}

  Version old, now;
};

// An image of 16 MiB whose last half is noise, the same in all versions.
std::vector<std::uint8_t> ImageOf(const FirmwareModel& firmware) {
  std::vector<std::uint8_t> bytes = firmware.Link(0x1000000).image;
  std::mt19937 random(1);
  for (std::size_t i = bytes.size() / 2; i < bytes.size(); ++i)
    bytes[i] = static_cast<std::uint8_t>(random());
  return bytes;
}

const Versions& Large() {
  static const Versions versions = [] {
    const FirmwareModel before(1, functions);
    return Versions(ImageOf(before), ImageOf(before.Later(2, 0.04)));
  }();
  return versions;
}

// The same short function again and again.
const Versions& Clones() {
  static const Versions versions = [] {
    const std::vector<std::uint8_t> one{0xE6, 0xFC, 0x12, 0x34, 0xF0, 0xCD, 0x00, 0xCD, 0xF2, 0xF4,
                                        0x00, 0x80, 0x48, 0x41, 0x2D, 0x02, 0xE0, 0x14, 0x98, 0x90,
                                        0xDA, 0x80, 0x00, 0x00, 0x98, 0x80, 0xDB, 0x00};
    std::vector<std::uint8_t> bytes;
    while (bytes.size() < 0x800000) bytes.insert(bytes.end(), one.begin(), one.end());
    bytes.resize(0x800000);
    return Versions(bytes, bytes);
  }();
  return versions;
}

CodePairing Paired(const Versions& versions) {
  NoProgress progress;
  return {versions.old.units, versions.old.Base(), versions.now.units, versions.now.Base(), progress};
}

// Changes of so many bytes each, spread evenly from a place on.
std::vector<PatchChange> Changes(const Versions& versions, int count, Offset size, Offset from, Offset step) {
  std::vector<PatchChange> changes;
  for (int i = 0; i < count; ++i) {
    const Offset at = from + step * i;
    const Bytes old = versions.old.image.Region(at, size);
    changes.push_back({0, {at, {old.begin(), old.end()}, std::vector<std::uint8_t>(old.size(), 0xCC)}});
  }
  return changes;
}

void Pair(benchmark::State& state, const Versions& (*make)(), int goal) {
  const Versions& versions = make();
  int paired = 0;
  for (auto _ : state) {
    const CodePairing pairing = Paired(versions);
    paired = static_cast<int>(std::ranges::count_if(pairing.NewOfAll(), [](int unit) { return unit >= 0; }));
  }
  state.counters["units"] = static_cast<double>(versions.old.units.units.size());
  state.counters["paired"] = paired;
  state.counters["goal ms"] = goal;
}
BENCHMARK_CAPTURE(Pair, large, Large, 3000)->Unit(benchmark::kMillisecond)->Iterations(1);
BENCHMARK_CAPTURE(Pair, clones, Clones, 3000)->Unit(benchmark::kMillisecond)->Iterations(1);

void Port(benchmark::State& state, const Versions& (*make)(), int count, Offset size, Offset from,
          Offset step) {
  const Versions& versions = make();
  const CodePairing pairing = Paired(versions);
  const std::vector<PatchChange> changes = Changes(versions, count, size, from, step);
  std::size_t ported = 0;
  NoProgress progress;
  for (auto _ : state)
    for (const PortedChange& change :
         PortChanges(changes, versions.old.image, versions.now.image, pairing, progress))
      ported += !change.refusal;
  state.counters["ported"] = static_cast<double>(ported);
  state.counters["goal ms"] = 2000;
}
BENCHMARK_CAPTURE(Port, lines, Large, 1000, 2, 0, 0x4000)->Unit(benchmark::kMillisecond)->Iterations(1);
// A patch file of 30 MB.
BENCHMARK_CAPTURE(Port, data, Large, 400000, 16, 0x800000, 16)->Unit(benchmark::kMillisecond)->Iterations(1);
BENCHMARK_CAPTURE(Port, scattered data, Large, 200000, 2, 0x800000, 40)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(1);
BENCHMARK_CAPTURE(Port, clones, Clones, 1000, 2, 0, 0x2000)->Unit(benchmark::kMillisecond)->Iterations(1);

}  // namespace
}  // namespace tarvelo
