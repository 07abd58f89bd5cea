#include "bench/scan_bench.h"

#include <benchmark/benchmark.h>

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "bench/firmware.h"
#include "bench/ratio.h"
#include "core/dump.h"
#include "core/scan/vector_scan.h"
#include "core/summary.h"
#include "demo/demo_image.h"
#include "document/explorers.h"
#include "document/joint_search.h"
#include "eeprom/block_store.h"
#include "files/file_search.h"
#include "files/unit_maps.h"
#include "patch/pattern.h"
#include "pictures/picture_data.h"
#include "pictures/picture_search.h"
#include "ringtones/ringtone_search.h"

namespace tarvelo {
namespace {

enum Contents { bare, colourTable, monochromeTable, ringtones, eeprom, files, everything };

// The dumps to measure; each is made once.
Dump& DumpOf(std::size_t mebibytes, Contents contents) {
  static constexpr FirmwareContents kinds[] = {{},
                                               {.colourTable = true},
                                               {.monochromeTable = true},
                                               {.ringtones = true},
                                               {.eeprom = true},
                                               {.files = true},
                                               {.eeprom = true, .colourTable = true, .ringtones = true}};
  static std::map<std::pair<std::size_t, Contents>, Dump> dumps;
  const auto [at, isNew] = dumps.try_emplace({mebibytes, contents});
  if (isNew) at->second.image = Fullflash(Bytes(Firmware(mebibytes << 20, kinds[contents])));
  return at->second;
}

struct Line {
  std::string name;
  Contents contents;
  double goal;
  double goalSse2;
  std::function<void(Dump& dump)> work;
};

template <const char* const& pattern>
void Find(Dump& dump) {
  NoProgress progress;
  benchmark::DoNotOptimize(FindAll(dump.image, Pattern(pattern), progress));
}

constexpr const char* fixed = "E6FC4100E6";
constexpr const char* oneWildcard = "E6??4100E6";
constexpr const char* wildcardsInFront = "????4100E6FC";
constexpr const char* erasedBytes = "FFFF??FFFF00";
constexpr const char* longPattern = "E6FC????E6F4????DA??????D740??00F0F4??02E6FC4100E6FCE612F6F40812";

void ScanEeprom(Dump& dump) {
  NoProgress progress;
  benchmark::DoNotOptimize(GetEE(dump.image, "C60", progress));
}

void ScanPictures(Dump& dump) {
  NoProgress progress;
  benchmark::DoNotOptimize(GetP(dump.image, progress));
}

void ScanRingtones(Dump& dump) {
  NoProgress progress;
  benchmark::DoNotOptimize(GetRingtones(dump.image, progress));
}

void ScanUnitMaps(Dump& dump) {
  NoProgress progress;
  benchmark::DoNotOptimize(FindUnitMaps(dump.image, progress));
}

void ScanFiles(Dump& dump) {
  NoProgress progress;
  benchmark::DoNotOptimize(FindFiles(dump.image, progress));
}

void Open(Dump& dump) {
  static const Messages messages;
  dump.info = Identify(dump.image);
  benchmark::DoNotOptimize(Summary("dump.bin", dump.image, dump.info, messages));
}

void Explore(const Explorer& explorer, const Dump& dump) {
  NoProgress progress;
  const Findings found = explorer.search(dump, progress);
  benchmark::DoNotOptimize(ListOf(explorer, dump, found, true).rows.All());
}

void OpenAndExplore(Dump& dump) {
  Open(dump);
  NoProgress progress;
  const JointSearch joint(dump, Explorers(), progress);
  for (const Explorer* explorer : Explorers())
    if (!explorer->isOfC166) Explore(*explorer, dump);  // functions_bench.cpp
}

const std::vector<Line> scans{
    {"find E6FC4100E6", bare, 0.85, 0.60, Find<fixed>},
    {"find E6??4100E6", bare, 0.85, 0.60, Find<oneWildcard>},
    {"find ????4100E6FC", bare, 0.85, 0.60, Find<wildcardsInFront>},
    {"find FFFF??FFFF00", bare, 0.70, 0.50, Find<erasedBytes>},
    {"find 32 bytes, 8 wildcards", bare, 0.90, 0.60, Find<longPattern>},
    {"EEPROM headers", eeprom, 0.85, 0.65, ScanEeprom},
    {"picture table", colourTable, 0.85, 0.65, ScanPictures},
    {"pictures outside", monochromeTable, 0.85, 0.65, ScanPictures},
    {"ringtone table", ringtones, 0.85, 0.65, ScanRingtones},
    {"map of file units", files, 0.50, 0.30, ScanUnitMaps},
    {"files", files, 0.05, 0.05, ScanFiles},
    {"open", everything, 0.90, 0.80, Open},
    {"open and every explorer", everything, 0.35, 0.25, OpenAndExplore},
};

// Lines for each explorer alone too; none may be slower than all together.
const std::vector<Line>& Lines() {
  static const std::vector<Line> lines = [] {
    std::vector<Line> all = scans;
    for (const Explorer* explorer : Explorers())
      if (!explorer->isOfC166)
        all.push_back({"list " + std::string(explorer->key), everything, 0.20, 0.15,
                       [explorer](const Dump& dump) { Explore(*explorer, dump); }});
    return all;
  }();
  return lines;
}

void Measure(benchmark::State& state, const Line& line, std::size_t mebibytes, VectorUnit unit) {
  LimitVectorUnit(unit);
  Dump& dump = DumpOf(mebibytes, line.contents);
  Open(dump);
  for (auto _ : state) state.counters["ratio"] = MemoryRatio(dump.image.ff(), [&] { line.work(dump); });
  state.counters["goal"] = unit == VectorUnit::Sse2 ? line.goalSse2 : line.goal;
  LimitVectorUnit(VectorUnit::Avx2);
}

void Register(const Line& line, std::size_t mebibytes, VectorUnit unit) {
  const std::string name =
      line.name + "/" + std::to_string(mebibytes) + " MiB/" + (unit == VectorUnit::Avx2 ? "AVX2" : "SSE2");
  benchmark::RegisterBenchmark(name.c_str(), [&line, mebibytes, unit](benchmark::State& state) {
    Measure(state, line, mebibytes, unit);
  })->Iterations(1);
}

// Draws all pictures of the demonstration in turn.
void DrawPictures(benchmark::State& state) {
  const Fullflash image{Bytes(DemoImage(DemoKind::Large))};
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
  for (const Line& line : Lines())
    for (const std::size_t mebibytes : {8, 16, 64})
      // Large images always have colour tables, so headers outside are not searched.
      if (line.contents != monochromeTable || mebibytes <= 16)
        for (const VectorUnit unit : {VectorUnit::Avx2, VectorUnit::Sse2})
          if (unit <= BestVectorUnit()) Register(line, mebibytes, unit);
}

}  // namespace tarvelo
