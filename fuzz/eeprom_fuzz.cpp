// Arbitrary bytes as a dump with EEPROM blocks: their records, and a report for each.
#include "core/identification.h"
#include "eeprom/block_report.h"
#include "eeprom/block_store.h"
#include "eeprom/greeting.h"
#include "fuzz/target.h"
#include "text/unicode.h"

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

// The report of a block as the window shows it, read from its first byte and from another one.
void Report(const BlockStore& store, std::size_t record, const Fullflash& image) {
  const BlockReport report = ReportOf(store, record, image);
  const BlockData& data = report.data;
  Check(report.record == store.records[record], "a report is of its record");
  Check(data.position + data.bytes.size() <= report.record.Size, "the data is no longer than the block");
  Check(data.whole == (data.bytes.size() == report.record.Size), "what is whole is as long as the block");
  Check(report.others.size() < store.records.size(), "no block is another generation of itself");
  (void)HexDump(data);
  if (data.bytes.empty()) return;
  const std::size_t some = report.record.Number % data.bytes.size();
  const std::size_t line = some / dumpRowLength;
  Check(DumpByte(data, line, DumpColumn(some)) == some, "a byte is found where it stands");
  for (const std::size_t start : {std::size_t{0}, some})
    for (const BlockReading& reading : ReadAsText(data.bytes, start))
      Check(ToUtf8(ToUtf16(reading.text)) == reading.text, "a text is UTF-8");
}

// All reports. If there are very many blocks, only those at both ends, so that an input stays fast.
void ReportAll(const BlockStore& store, const Fullflash& image) {
  constexpr std::size_t most = 16;
  const std::size_t count = store.records.size();
  for (std::size_t i = 0; i < count; ++i)
    if (i < most || i + most >= count) Report(store, i, image);
  for (const int number : {0, 67, 999, 5001, 6000})
    for (const auto& found :
         {LiveBlock(store, number), NextBlock(store, number), PreviousBlock(store, number)})
      Check(!found || *found < count, "a block that is found has a record");
  for (std::size_t i = 0; i < viewerEntries; ++i) {
    const auto found = LiveBlock(store, static_cast<ViewerEntry>(i));
    Check(found.has_value() == store.viewers.test(i), "an entry that is enabled has a live block");
  }
}

void Explore(const Fullflash& image, std::string_view model) try {
  NoProgress progress;
  const BlockStore store = GetEE(image, model, progress);
  CheckRecords(store, image);
  Check((EnabledViewers({}, store.viewers) == store.viewers), "a first scan enables what it found");
  ReportAll(store, image);
  const std::string greeting = GreetingModel(image, store);
  Check(greeting.find(' ') == greeting.npos && greeting == WithDots(greeting),
        "a model is one printable word");
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
