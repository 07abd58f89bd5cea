// How long it takes to find the functions of 16 MiB.
#include <benchmark/benchmark.h>

#include "code/functions.h"
#include "tests/code/made_firmware.h"

namespace tarvelo {
namespace {

constexpr std::size_t mebibyte = 0x100000;

// Moves made firmware, which is the last MiB of the address space, to the MiB with this number.
void Move(MadeFirmware& made, std::size_t to) {
  const auto segment = [&](std::size_t target) {
    return static_cast<std::uint8_t>((to * mebibyte + target) >> 16);
  };
  for (const MadeReference& reference : made.references) {
    if (reference.kind == MadeReference::Kind::Call)
      PutByte(made.bytes, reference.place + 1, segment(reference.target));
    else if (reference.kind == MadeReference::Kind::Pointer)
      PutByte(made.bytes, reference.place + 2, segment(reference.target));
  }
}

// The same firmware with other numbers, 16 times.
const Fullflash& Image() {
  static const Fullflash image = [] {
    ByteBuffer bytes;
    for (std::uint32_t i = 0; i < 16; ++i) {
      MadeFirmware made = MakeFirmware(i + 1);
      Move(made, i);
      AppendBytes(bytes, made.bytes);
    }
    return Fullflash{Bytes(bytes)};
  }();
  return image;
}

void FindFunctions(benchmark::State& state) {
  NoProgress progress;
  std::size_t count = 0;
  for (auto _ : state) count = GetFunctions(Image(), progress).All().size();
  state.counters["functions"] = static_cast<double>(count);
  state.counters["goal ms"] = 150;
}
BENCHMARK(FindFunctions)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tarvelo
