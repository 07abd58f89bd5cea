// Any bytes as a dump: every byte of it has one label.
#include "fuzz/target.h"
#include "document/dump_map.h"
#include "document/map_table.h"

namespace {

using namespace tarvelo;
using namespace tarvelo::fuzz;

void CheckRegions(const DumpMap& map, const Fullflash& image) {
  Offset end = 0;
  for (const MapRegion& region : map.regions) {
    Check(region.offset == end && region.size > 0, "a region begins where the one before it ends");
    Check((region.kind == MapKind::Unknown) == (region.sure == Sureness::Unknown), "what is known is sure");
    end = region.End();
  }
  Check(end == static_cast<Offset>(image.ff().size()), "the regions make up the whole image");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Fullflash image = ImageOf({data, size});
  if (!image.IsOpen()) return 0;
  NoProgress progress;
  DumpMap map;
  try {
    map = MapDump(image, Identify(image), progress);
  } catch (const std::length_error&) {
    return 0;  // more EEPROM blocks than the directory holds
  }
  CheckRegions(map, image);
  const Table table = MapRows(map, image).All();
  Check(table.rows.size() == map.regions.size(), "a region has a row");
  for (const MapRegion& region : map.regions) {
    Check(map.Within(region.offset, region.size).size() == 1, "a region is found where it lies");
    Check(!LabelOf(map, region.offset, image.ffEnd()).empty(), "bytes of the image have a label");
  }
  return 0;
}
