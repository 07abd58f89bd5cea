#include <benchmark/benchmark.h>

#include <algorithm>
#include <string>

#include "bench/ratio.h"
#include "bench/scan_bench.h"
#include "patch/pattern.h"

namespace tarvelo {
namespace {

struct Case {
  const char* pattern;
  const char* image;  // hexadecimal bytes, repeated over the whole image
};

constexpr Case cases[] = {
    {"FFFFFFFF", "FF"},
    {"FF??FFFF", "FF"},
    {"FFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFF", "FF"},
    {"4142??4142", "4142"},
    {"41424142414241424142414241424100", "4142"},
    {"FF", "FF00"},
    {"00FF00", "00FF00112233445566778899AABBCCDD"},
};

// The definition: every position, byte by byte up to the first difference.
class PlainPattern {
 public:
  explicit PlainPattern(const std::string& text) {
    for (std::size_t i = 0; i < text.size(); i += 2)
      bytes_.push_back(text[i] == '?' ? -1 : std::stoi(text.substr(i, 2), nullptr, 16));
  }

  [[nodiscard]] std::vector<Offset> FindAll(Bytes image) const {
    std::vector<Offset> hits;
    for (std::size_t p = 1; p + bytes_.size() < image.size(); ++p)
      if (MatchesAt(image.data() + p)) hits.push_back(static_cast<Offset>(p));
    return hits;
  }

 private:
  [[nodiscard]] bool MatchesAt(const std::uint8_t* at) const {
    for (std::size_t k = 0; k < bytes_.size(); ++k)
      if (bytes_[k] >= 0 && at[k] != bytes_[k]) return false;
    return true;
  }

  std::vector<int> bytes_;
};

Fullflash Repeated(const std::string& hex) {
  std::vector<std::uint8_t> bytes(std::size_t{4} << 20);
  for (std::size_t i = 0; i < bytes.size(); ++i)
    bytes[i] = static_cast<std::uint8_t>(std::stoi(hex.substr(2 * i % hex.size(), 2), nullptr, 16));
  bytes[0] = 0x77;  // a hit at offset 0 would end the search
  return Fullflash{Bytes(bytes)};
}

void Measure(benchmark::State& state, const Case& dense) {
  const Fullflash image = Repeated(dense.image);
  const PlainPattern plain(dense.pattern);
  const Pattern pattern(dense.pattern);
  NoProgress progress;
  for (auto _ : state)
    state.counters["ratio"] =
        SpeedRatio([&] { benchmark::DoNotOptimize(plain.FindAll(image.ff())); },
                   [&] { benchmark::DoNotOptimize(FindAll(image, pattern, progress)); });
  state.counters["goal"] = 1;
}

}  // namespace

void RegisterDenseSearches() {
  for (const Case& dense : cases) {
    const std::string name = std::string("dense ") + dense.pattern + " in " + dense.image;
    benchmark::RegisterBenchmark(name.c_str(), [&dense](benchmark::State& state) {
      Measure(state, dense);
    })->Iterations(1);
  }
}

}  // namespace tarvelo
