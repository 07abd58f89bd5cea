#include "bench/scan_bench.h"

#include <benchmark/benchmark.h>

#include <map>
#include <string>

#include "bench/firmware.h"
#include "bench/ratio.h"
#include "core/identification.h"
#include "core/summary.h"
#include "core/scan/vector_scan.h"
#include "demo/demo_image.h"
#include "eeprom/block_table.h"
#include "eeprom/descriptions.h"
#include "pictures/picture_data.h"
#include "pictures/picture_search.h"
#include "pictures/picture_table.h"
#include "ringtones/ringtone_search.h"
#include "ringtones/ringtone_table.h"
#include "patch/pattern.h"

namespace tarvelo {
namespace {

enum Contents { bare, colourTable, monochromeTable, ringtones, eeprom, everything };

// The images in use, made once.
Fullflash& Image(std::size_t mebibytes, Contents contents) {
  static constexpr FirmwareContents kinds[] = {{},
                                               {.colourTable = true},
                                               {.monochromeTable = true},
                                               {.ringtones = true},
                                               {.eeprom = true},
                                               {.eeprom = true, .colourTable = true, .ringtones = true}};
  static std::map<std::pair<std::size_t, Contents>, Fullflash> images;
  const auto [at, isNew] = images.try_emplace({mebibytes, contents});
  if (isNew) at->second = Fullflash(Bytes(Firmware(mebibytes << 20, kinds[contents])));
  return at->second;
}

struct Line {
  const char* name;
  Contents contents;
  double goal;
  double goalSse2;
  void (*work)(Fullflash& image);
};

template <const char* const& pattern>
void Find(Fullflash& image) {
  NoProgress progress;
  benchmark::DoNotOptimize(FindAll(image, Pattern(pattern), progress));
}

constexpr const char* fixed = "E6FC4100E6";
constexpr const char* oneWildcard = "E6??4100E6";
constexpr const char* wildcardsInFront = "????4100E6FC";
constexpr const char* erasedBytes = "FFFF??FFFF00";
constexpr const char* longPattern = "E6FC????E6F4????DA??????D740??00F0F4??02E6FC4100E6FCE612F6F40812";

void ScanEeprom(Fullflash& image) {
  NoProgress progress;
  benchmark::DoNotOptimize(GetEE(image, "C60", progress));
}

void ScanPictures(Fullflash& image) {
  NoProgress progress;
  benchmark::DoNotOptimize(GetP(image, progress));
}

void ScanRingtones(Fullflash& image) {
  NoProgress progress;
  benchmark::DoNotOptimize(GetRingtones(image, progress));
}

void Open(Fullflash& image) {
  static const Messages messages;
  const Identification info = Identify(image);
  benchmark::DoNotOptimize(Summary("dump.bin", image, info, messages));
}

void OpenAndExplore(Fullflash& image) {
  static const Messages messages;
  static const Descriptions descriptions = GetDescriptions();
  NoProgress progress;
  const Identification info = Identify(image);
  benchmark::DoNotOptimize(Summary("dump.bin", image, info, messages));
  benchmark::DoNotOptimize(ShowEE(GetEE(image, info.Model, progress), true,
                                  [&](int number) { return Describe(descriptions, number); }));
  benchmark::DoNotOptimize(PictureTable(GetP(image, progress)));
  benchmark::DoNotOptimize(RingtoneTable(GetRingtones(image, progress), image));
}

constexpr Line lines[] = {
    {"find E6FC4100E6", bare, 0.85, 0.60, Find<fixed>},
    {"find E6??4100E6", bare, 0.85, 0.60, Find<oneWildcard>},
    {"find ????4100E6FC", bare, 0.85, 0.60, Find<wildcardsInFront>},
    {"find FFFF??FFFF00", bare, 0.70, 0.50, Find<erasedBytes>},
    {"find 32 bytes, 8 wildcards", bare, 0.90, 0.60, Find<longPattern>},
    {"EEPROM headers", eeprom, 0.85, 0.65, ScanEeprom},
    {"picture table", colourTable, 0.85, 0.65, ScanPictures},
    {"pictures outside", monochromeTable, 0.85, 0.65, ScanPictures},
    {"ringtone table", ringtones, 0.85, 0.65, ScanRingtones},
    {"open", everything, 0.90, 0.80, Open},
    {"open and every explorer", everything, 0.20, 0.15, OpenAndExplore},
};

void Measure(benchmark::State& state, const Line& line, std::size_t mebibytes, VectorUnit unit) {
  LimitVectorUnit(unit);
  Fullflash& image = Image(mebibytes, line.contents);
  for (auto _ : state) state.counters["ratio"] = MemoryRatio(image.ff(), [&] { line.work(image); });
  state.counters["goal"] = unit == VectorUnit::Sse2 ? line.goalSse2 : line.goal;
  LimitVectorUnit(VectorUnit::Avx2);
}

void Register(const Line& line, std::size_t mebibytes, VectorUnit unit) {
  const std::string name = std::string(line.name) + "/" + std::to_string(mebibytes) + " MiB/" +
                           (unit == VectorUnit::Avx2 ? "AVX2" : "SSE2");
  benchmark::RegisterBenchmark(name.c_str(), [&line, mebibytes, unit](benchmark::State& state) {
    Measure(state, line, mebibytes, unit);
  })->Iterations(1);
}

// All pictures of the demonstration, one after the other.
void DrawPictures(benchmark::State& state) {
  const Fullflash image{Bytes(DemoImage(true))};
  NoProgress progress;
  const PictureList list = GetP(image, progress);
  double pixels = 0;
  for (auto _ : state) {
    PictureDecoder decoder(image.ff());
    for (const Picture& picture : list.pictures) {
      benchmark::DoNotOptimize(decoder.ShowP(picture, list.colourSeen));
      pixels += picture.width * picture.height;
    }
  }
  state.counters["seconds per pixel"] =
      benchmark::Counter(pixels, benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
  state.counters["goal"] = 20e-9;
}
BENCHMARK(DrawPictures)->Unit(benchmark::kMillisecond);

}  // namespace

void RegisterScans() {
  for (const Line& line : lines)
    for (const std::size_t mebibytes : {8, 16, 64})
      // Large images always have colour tables, and then nothing outside is looked for.
      if (line.contents != monochromeTable || mebibytes <= 16)
        for (const VectorUnit unit : {VectorUnit::Avx2, VectorUnit::Sse2})
          if (unit <= BestVectorUnit()) Register(line, mebibytes, unit);
}

}  // namespace tarvelo
