// A volume of the flash file system made of arbitrary records: its entries, their texts and their bytes.
//
// The input: number of records, a byte; for each 8 bytes: state, an unused byte, record number, size and
// place of its bytes, words; then the bytes at the start of the units.
#include "core/record_slot.h"
#include "files/file_content.h"
#include "files/file_search.h"
#include "files/file_table.h"
#include "files/file_text.h"
#include "fuzz/target.h"

namespace tarvelo::fuzz {
namespace {

constexpr std::size_t unitSize = 0x10000;
constexpr std::size_t imageSize = 2 * unitSize;

void PutWordAt(std::uint8_t* at, unsigned value) {
  at[0] = static_cast<std::uint8_t>(value);
  at[1] = static_cast<std::uint8_t>(value >> 8);
}

Fullflash VolumeOf(Bytes data) {
  Input input(data);
  FileBytes bytes(imageSize);
  std::uint8_t* const image = bytes.data.get();
  std::fill_n(image, imageSize, std::uint8_t{0xFF});
  std::size_t slots[] = {unitSize, imageSize};
  const int count = input.Byte();
  for (int i = 0; i < count; ++i) {
    std::size_t& end = slots[i % 2];
    end -= RecordSlot::length;
    std::uint8_t* const slot = image + end;
    slot[0] = slot[11] = input.Byte();
    slot[1] = input.Byte();
    PutWordAt(slot + 8, input.Word());
    PutWordAt(slot + 2, input.Word());
    PutWordAt(slot + 4, input.Word());
    PutWordAt(slot + 6, 0xFE + i % 2);
  }
  for (std::size_t unit = 0; unit < imageSize; unit += unitSize) {
    constexpr std::uint8_t header[] = {0xFE, 0xFE, 'F', 'F', 'S', 0, 0, 0, 1, 0, 2, 0, 3, 0, 0xFE, 0xFE};
    std::ranges::copy(header, image + unit + unitHeaderAt);
    const std::size_t room = slots[unit / unitSize] - unit - unitDataAt;
    std::ranges::copy(input.Rest().first(std::min(input.Rest().size(), room)), image + unit + unitDataAt);
  }
  return Fullflash(std::move(bytes));
}

void CheckEntry(const Fullflash& image, const FileList& list, std::uint32_t index) {
  const FileEntry& entry = list.entries[index];
  Check(entry.isDeleted == (index >= list.liveCount), "deleted entries stand behind the others");
  Check(entry.parent == noIndex || entry.parent < index, "a folder precedes what it holds");
  Check(entry.parent == noIndex || list.entries[entry.parent].isFolder, "a parent is a folder");
  Check(entry.header < list.records.size(), "a header is a record");
  Check(entry.firstPiece + entry.pieceCount <= list.pieces.size(), "pieces are records");
  const Offset size = SizeOf(image, list, entry);
  const auto content = ContentOf(image, list, entry);
  Check(std::ssize(content) == size && size <= std::ssize(image.ff()), "a file is as long as its pieces");
  const FileReplacement same = ReplaceContent(image, list, entry, content);
  Check(same.changes.empty(), "the same bytes change nothing");
  const FileReplacement none = ReplaceContent(image, list, entry, {});
  for (const Change& change : none.changes)
    Check(change.offset >= 0 && change.offset + change.Size() <= std::ssize(image.ff()),
          "a change is inside");
}

void CheckFolders(const FileList& list) {
  const FolderContents contents(list);
  std::size_t members = contents.In(noIndex).size();
  for (std::uint32_t i = 0; i < list.entries.size(); ++i) members += contents.In(i).size();
  Check(members == list.entries.size(), "an entry stands in one folder");
}

}  // namespace

void Run(Bytes data) {
  const Fullflash image = VolumeOf(data);
  const FileList list = FindFiles(image, noProgress);
  for (std::uint32_t i = 0; i < list.entries.size(); ++i) CheckEntry(image, list, i);
  CheckFolders(list);
  const TableRows rows = FileRows(list, image, Messages(), 0x10000, true);
  for (std::size_t i = 0; i < rows.count; ++i)
    for (const std::string& cell : rows.row(i).cells) Check(IsUtf8(cell), "a cell is UTF-8");
}

}  // namespace tarvelo::fuzz
