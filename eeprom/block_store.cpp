#include "eeprom/block_store.h"

#include <algorithm>
#include <stdexcept>
#include <string>

#include "core/scan/vector_scan.h"

namespace tarvelo {
namespace {

constexpr Offset step = 4;
constexpr Offset progressStep = 0x1000;
constexpr Offset lastOfWholeScan = 0x800000;  // last index of the longest image that is scanned whole
constexpr Offset storeLength = 0xA0000;

struct Viewer {
  int first, last;  // numbers
  ViewerEntry entry;
};

constexpr Viewer viewers[] = {
    {67, 67, ViewerEntry::x0067},     {71, 71, ViewerEntry::x0071},     {280, 280, ViewerEntry::x0280},
    {5076, 5076, ViewerEntry::x5076}, {5079, 5079, ViewerEntry::x5079}, {5098, 5107, ViewerEntry::x509x},
    {5124, 5124, ViewerEntry::x5124}, {5136, 5136, ViewerEntry::x5136}, {5166, 5166, ViewerEntry::x5166},
    {5168, 5168, ViewerEntry::x5168}, {5170, 5179, ViewerEntry::x517x}, {5206, 5206, ViewerEntry::x5206},
    {5209, 5209, ViewerEntry::x5209}, {5237, 5241, ViewerEntry::x5136}, {5262, 5262, ViewerEntry::x5262},
    {5274, 5274, ViewerEntry::x5274}, {5275, 5275, ViewerEntry::x5275}, {5276, 5276, ViewerEntry::x5276},
    {5277, 5277, ViewerEntry::x5277}, {5278, 5278, ViewerEntry::x5278},
};

std::size_t IndexOf(ViewerEntry entry) { return static_cast<std::size_t>(entry); }

// Whether a 64 KiB block of the address space can hold data.
bool CanHoldData(std::uint32_t block) {
  return block == 0xBF || (block >= 0x7C && block <= 0x7F) || (block >= 0xF6 && block <= 0xFF);
}

bool IsHeader(const RecordSlot& slot) {
  const bool isState = slot.state == liveBlockState || slot.state == deletedBlockState;
  return isState && slot.stateAgain == slot.state && slot.version <= 0x21 && slot.size < 0x1500 &&
         slot.number < 0x1900 && CanHoldData(slot.address >> 16);
}

// The rules that need no ordering comparison, as bits. Little else than headers passes them. The first two
// are the rarest in code.
constexpr Probe headerProbes[] = {
    {.offset = 4, .value = 0x00300000, .mask = 0xFF300000},  // bits common to all values of byte 6, byte 7
    {.offset = 8, .value = 0xF0000000, .mask = 0xF300E000},  // byte 9 below 0x20, byte 11 a state
    {.offset = 0, .value = 0x000000F0, .mask = 0xE000C0F3},  // byte 0 a state, 1 and 3 below 0x40 and 0x20
};

constexpr SieveForm headers{step, headerProbes};

Offset ScanStart(Offset last, std::string_view model) {
  // A C60 is scanned whole on purpose, however long its image is.
  if (model == "C60" || last <= lastOfWholeScan) return 0;
  return last - storeLength + 1;
}

class Scan {
 public:
  Scan(const Fullflash& image, std::string_view model, const SieveMarks& marks, Progress& progress)
      : image_(image),
        sieve_(headers, marks.Of(headers)),
        start_(ScanStart(image.ffEnd(), model)),
        last_(Offset{image.ffEnd()} - (blockHeaderLength - 1)),
        progress_(progress, start_, image.ffEnd()) {}

  BlockStore Run() {
    for (Offset p = start_; p <= last_;) {
      // Several progress steps are reported at once, so that the sieve gets long runs.
      Offset pieceEnd = p;
      for (int i = 0; i < 16 && pieceEnd <= last_; ++i) {
        progress_.At(pieceEnd);
        pieceEnd = NextPosition((pieceEnd / progressStep + 1) * progressStep);
      }
      sieve_.Each(image_.ff(), p, std::min(pieceEnd - step, last_), [&](Offset candidate) {
        Take(candidate);
        return false;
      });
      p = pieceEnd;
    }
    return std::move(store_);
  }

 private:
  // The first scan position at or behind p.
  [[nodiscard]] Offset NextPosition(Offset p) const { return start_ + (p - start_ + step - 1) / step * step; }

  void Take(Offset p) {
    const RecordSlot slot = ReadSlot(image_.ff(), p);
    if (p < next_ || !IsHeader(slot) || !IsBlockNumber(slot.number)) return;
    Add(p, slot);
    next_ = p + blockHeaderLength;
  }

  void Add(Offset p, const RecordSlot& slot) {
    if (store_.records.size() == mostBlocks)
      throw std::length_error("more than " + std::to_string(mostBlocks) + " EEPROM block headers");
    EepromBlockRecord record;
    record.Number = slot.number;
    record.V = slot.version;
    // The address has 24 bits, so the difference can't overflow.
    record.DataOffset = static_cast<std::int32_t>(slot.address) - image_.LoadBase();
    record.Size = slot.size;
    record.State = slot.state;
    record.HeaderPos = static_cast<std::int32_t>(p);
    if (record.IsDeleted())
      ++store_.DeletedCount;
    else
      EnterLive(record);
    store_.records.push_back(record);
  }

  void EnterLive(EepromBlockRecord& record) {
    store_.BlockOffset[record.Number] = record.DataOffset;
    store_.BlockSize[record.Number] = record.Size;
    store_.BlockV[record.Number] = record.V;
    const auto viewer = ViewerOf(record.Number);
    record.HasViewer = viewer.has_value();
    if (viewer) store_.viewers.set(IndexOf(*viewer));
  }

  const Fullflash& image_;
  const Sieve sieve_;
  const Offset start_;
  const Offset last_;  // the last position at which a header fits
  Offset next_ = 0;    // the end of the last accepted header
  ProgressRun progress_;
  BlockStore store_;
};

}  // namespace

bool IsBlockNumber(int number) {
  return (number >= 1 && number <= 999) || (number >= 5001 && number <= 5999);
}

std::optional<ViewerEntry> ViewerOf(int number) {
  const auto found = std::ranges::find_if(
      viewers, [&](const Viewer& viewer) { return number >= viewer.first && number <= viewer.last; });
  if (found == std::end(viewers)) return std::nullopt;
  return found->entry;
}

ViewerSet EnabledViewers(const ViewerSet& before, const ViewerSet& found) {
  ViewerSet stay;
  for (const auto entry : {ViewerEntry::x5275, ViewerEntry::x5276, ViewerEntry::x5277, ViewerEntry::x5278})
    stay.set(IndexOf(entry));
  return (before & stay) | found;
}

const SieveForm* HeaderSieve(const Fullflash& image, std::string_view model) {
  return ScanStart(image.ffEnd(), model) == 0 ? &headers : nullptr;
}

BlockStore GetEE(const Fullflash& image, std::string_view model, Progress& progress,
                 const SieveMarks& marks) {
  return Scan(image, model, marks, progress).Run();
}

}  // namespace tarvelo
