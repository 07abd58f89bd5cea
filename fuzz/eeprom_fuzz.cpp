// Any bytes as a dump with EEPROM blocks: scanned, listed, reported.
#include "core/identification.h"
#include "eeprom/block_store.h"
#include "eeprom/block_table.h"
#include "fuzz/target.h"

namespace {

using namespace tarvelo;
using namespace tarvelo::fuzz;

void CheckRecords(const BlockStore& store, const Fullflash& image) {
  Check(store.records.size() <= mostBlocks, "there are no more blocks than the directory holds");
  Check(store.DeletedCount + store.LiveCount() == store.BlockCount(), "a block is live or deleted");
  Offset last = -blockHeaderLength;
  for (const EepromBlockRecord& record : store.records) {
    Check(IsBlockNumber(record.Number), "a record has a block's number");
    Check(record.HeaderPos >= last + blockHeaderLength, "headers do not overlap");
    Check(record.HeaderPos + blockHeaderLength <= image.ffEnd() + 1, "a header lies within the image");
    Check(record.IsDeleted() || store.BlockV[record.Number] <= 0x21, "a live block is in the directory");
    last = record.HeaderPos;
  }
}

void List(const BlockStore& store) {
  for (const bool showDeleted : {false, true}) {
    const Table table = ShowEE(store, showDeleted, [](int number) { return std::to_string(number); });
    Check(table.rows.size() == ShownRecords(store, showDeleted).size(), "a shown record has a row");
    (void)TabSeparated(table, "\r\n");
  }
  (void)BlockInformation(store, Messages());
  (void)BlockStatus(store);
  Check((EnabledViewers({}, store.viewers) == store.viewers), "a first scan enables what it found");
}

void Explore(const Fullflash& image, std::string_view model) try {
  NoProgress progress;
  const BlockStore store = GetEE(image, model, progress);
  CheckRecords(store, image);
  List(store);
} catch (const std::length_error&) {
  // more blocks than the directory holds
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Fullflash image = ImageOf({data, size});
  if (!image.IsOpen()) return 0;
  const Identification info = Identify(image);
  Explore(image, info.Model);
  if (image.ff().size() > 0x800001) Explore(image, "C60");
  return 0;
}
