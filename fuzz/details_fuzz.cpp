// Arbitrary bytes as a dump: reports on single EEPROM blocks, draws pictures, plays melodies and turns both
// into files. Also arbitrary bytes as a sound file.
#include "core/identification.h"
#include "eeprom/block_report.h"
#include "eeprom/block_store.h"
#include "eeprom/greeting.h"
#include "fuzz/target.h"
#include "pictures/bitmap_file.h"
#include "pictures/picture_data.h"
#include "pictures/picture_search.h"
#include "ringtones/melody.h"
#include "ringtones/ringtone_files.h"
#include "ringtones/ringtone_length.h"
#include "ringtones/ringtone_search.h"
#include "text/unicode.h"

namespace tarvelo::fuzz {
namespace {

// Limits that keep an input fast: block reports, at either end of the list; pixels of all pictures together,
// and of one packed as PNG; milliseconds of sound and records of all melodies together.
constexpr std::size_t mostReports = 16;
constexpr std::size_t mostPixels = 1 << 16;
constexpr std::size_t mostPacked = 1 << 10;
constexpr std::int64_t mostTime = 3000;
constexpr Offset mostNotes = 1 << 17;

void CheckRecords(const BlockStore& store, const Fullflash& image) {
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
      Check(IsUtf8(reading.text), "a text is UTF-8");
}

void ReportBlocks(const Fullflash& image, std::string_view model) try {
  const BlockStore store = GetEE(image, model, noProgress);
  const std::size_t count = store.records.size();
  Check(count <= mostBlocks, "there are no more blocks than the directory holds");
  CheckRecords(store, image);
  for (std::size_t i = 0; i < count; ++i)
    if (i < mostReports || i + mostReports >= count) Report(store, i, image);
  for (const int number : {0, 67, 999, 5001, 6000})
    for (const auto& found :
         {LiveBlock(store, number), NextBlock(store, number), PreviousBlock(store, number)})
      Check(!found || *found < count, "a block that is found has a record");
  for (std::size_t i = 0; i < viewerEntries; ++i) {
    const auto found = LiveBlock(store, static_cast<ViewerEntry>(i));
    Check(found.has_value() == store.viewers.test(i), "an entry that is enabled has a live block");
  }
  const std::string greeting = GreetingModel(image, store);
  Check(greeting.find(' ') == greeting.npos && greeting == WithDots(greeting),
        "a model is one printable word");
} catch (const std::length_error&) {
  // more blocks than the directory holds
}

void DrawPictures(const Fullflash& image) {
  const PictureList list = GetP(image, noProgress);
  Check(list.tables.size() <= 99, "there are at most 99 tables");
  PictureDecoder decoder(image.ff());
  std::size_t drawn = 0;
  for (const Picture& picture : list.pictures) {
    const int size =
        decoder.SizeP(picture.width, picture.height, picture.BitsPerPixel(), picture.data, picture.type);
    Check(picture.size == size, "a picture is as large as its data says again");
    const Bitmap bitmap = decoder.ShowP(picture, list.colourSeen);
    Check(bitmap.width == picture.width && bitmap.height == picture.height,
          "a bitmap has the picture's size");
    const std::size_t pixels = bitmap.pixels.size();
    Check(BmpFile(bitmap).size() >= 54 + 3 * pixels, "a bitmap file holds every pixel");
    if (pixels <= mostPacked) Check(PngFile(bitmap).empty() == (pixels == 0), "pixels make a PNG file");
    drawn += pixels + 64;  // a picture without pixels takes time too
    if (drawn > mostPixels) break;
  }
}

void PlayMelodies(const Fullflash& image) {
  const RingtoneList list = GetRingtones(image, noProgress);
  Check(list.ringtones.size() <= 256, "there is one ringtone a number");
  std::int64_t played = 0;
  Offset notes = 0;
  for (const Ringtone& ringtone : list.ringtones) {
    const auto end = static_cast<Offset>(image.ff().size());
    Check(ringtone.size == 0 || ringtone.data + ringtone.size <= end, "a ringtone lies within the image");
    notes += ringtone.Notes();
    if (ringtone.IsFile() || notes >= mostNotes) continue;
    const std::vector<Tone> melody = DecodeMelody(image.ff(), ringtone.data);
    Check(std::ssize(melody) == ringtone.Notes(), "a melody has as many notes as its entry");
    std::int64_t time = 0;
    for (const Tone& tone : melody) time += tone.duration;
    Check(time == ringtone.time, "a melody is as long as its notes");
    played += ringtone.time;
    if (played >= mostTime) continue;
    (void)MelodyMidi(melody);
    (void)MelodyWave(melody);
  }
}

void CheckLength(Bytes file) {
  for (const FileLength& length : {LengthOfMidi(file), LengthOfWave(file)}) {
    Check(length.size >= 0 && length.size <= std::ssize(file), "a file ends with the image");
    Check(length.time >= 0, "time does not run backwards");
  }
}

}  // namespace

void Run(Bytes data) {
  CheckLength(data.subspan(std::min<std::size_t>(data.size(), 4)));  // the content
  Fullflash image = ImageOf(data);
  if (!image.IsOpen()) return;
  const Identification info = Identify(image);
  ReportBlocks(image, info.Model);
  if (image.ff().size() > 0x800001) ReportBlocks(image, "C60");
  DrawPictures(image);
  PlayMelodies(image);
}

}  // namespace tarvelo::fuzz
