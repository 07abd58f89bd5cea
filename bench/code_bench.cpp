// C166 code: decoding, and the references to an address.
#include <benchmark/benchmark.h>

#include "bench/firmware.h"
#include "bench/ratio.h"
#include "code/instruction_text.h"
#include "code/references.h"
#include "code/sweep.h"
#include "patch/pattern.h"

namespace tarvelo {
namespace {

const Fullflash& Image() {
  static const Fullflash image{Bytes(Firmware(8 << 20))};
  return image;
}

// Counts what a run over the whole image decodes; `goal` is in nanoseconds.
template <typename Take>
void SweepAll(benchmark::State& state, double goal, Take take) {
  const Bytes bytes = Image().ff();
  double instructions = 0;
  for (auto _ : state)
    Sweep(bytes, 0, static_cast<Offset>(bytes.size()),
          [&](Offset at, const Instruction& instruction, const ExtRange& range) {
            ++instructions;
            take(at, instruction, range);
            return false;
          });
  state.counters["seconds per instruction"] =
      benchmark::Counter(instructions, benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
  state.counters["goal"] = goal * 1e-9;
}

void Decode(benchmark::State& state) {
  const Bytes bytes = Image().ff();
  double instructions = 0;
  for (auto _ : state)
    for (std::size_t at = 0; at < bytes.size(); ++instructions) {
      const Instruction instruction = Instruction::Decode(bytes, static_cast<Offset>(at));
      benchmark::DoNotOptimize(instruction.IsData());
      at += static_cast<std::size_t>(instruction.Size());
    }
  state.counters["seconds per instruction"] =
      benchmark::Counter(instructions, benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
  state.counters["goal"] = 5e-9;
}
BENCHMARK(Decode)->Unit(benchmark::kMillisecond);

void SweepImage(benchmark::State& state) {
  int data = 0;
  SweepAll(state, 5, [&](Offset, const Instruction& instruction, const ExtRange& range) {
    data += instruction.IsData() || range.IsExtended() ? 1 : 0;
  });
  benchmark::DoNotOptimize(data);
}
BENCHMARK(SweepImage)->Unit(benchmark::kMillisecond);

void DecodeAndFormat(benchmark::State& state) {
  SweepAll(state, 60, [](Offset at, const Instruction& instruction, const ExtRange& range) {
    benchmark::DoNotOptimize(TextOf(instruction, Image().PhoneAddress(at), range.IsExtended()));
  });
}
BENCHMARK(DecodeAndFormat)->Unit(benchmark::kMillisecond);

// All references to one address: how many times the time of a search for four bytes.
void References(benchmark::State& state) {
  constexpr Offset target = 0x123456;
  NoProgress progress;
  const FunctionList functions;
  const auto find = [&] { benchmark::DoNotOptimize(FindAll(Image(), Pattern("E6FC4100"), progress)); };
  const auto references = [&] {
    benchmark::DoNotOptimize(GetReferences(Image(), target, functions, {}, progress));
  };
  for (auto _ : state) {
    state.counters["times find"] = 1 / SpeedRatio(find, references);
    state.counters["ratio"] = MemoryRatio(Image().ff(), references);
  }
  state.counters["goal"] = 2.5;
}
BENCHMARK(References)->Iterations(1);

// The sieve under it alone.
void ReferenceSieve(benchmark::State& state) {
  const Probe probe{0, 0x3456, 0x3FFF};
  const Sieve sieve(2, {&probe, 1});
  const Bytes bytes = Image().ff();
  int candidates = 0;
  for (auto _ : state)
    state.counters["ratio"] = MemoryRatio(bytes, [&] {
      sieve.Each(bytes, 0, static_cast<Offset>(bytes.size()) - 2, [&](Offset) {
        ++candidates;
        return false;
      });
    });
  benchmark::DoNotOptimize(candidates);
  state.counters["goal"] = 0.5;
}
BENCHMARK(ReferenceSieve)->Iterations(1);

}  // namespace
}  // namespace tarvelo
