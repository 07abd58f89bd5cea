#include "files/live_entries.h"

#include <algorithm>
#include <array>
#include <span>

#include "files/file_content.h"
#include "files/piece_chain.h"

namespace tarvelo {
namespace {

constexpr Offset folderItem = 4;
// Damaged folders may state far more bytes than they have. Together they may have this many times the bytes
// of the volume.
constexpr Offset mostReads = 16;

// A live header.
struct Head {
  std::uint32_t record = 0;
  std::uint16_t number = 0;
  std::uint16_t parent = 0;
  std::uint16_t data = 0;
  std::uint16_t next = noPiece;
  bool isFolder = false;
  bool hasName = false;
  bool isFound = false;    // by its number; false for the second one of a number
  bool isRegular = false;  // in record number + 6000
  bool isListed = false;   // in a folder
  bool isPlaced = false;   // has an entry
  bool isPiece = false;    // of another entry
  bool isData = false;     // of an entry whose bytes are in a record with an even number
};

class LiveBuilder {
 public:
  LiveBuilder(const Fullflash& image, const VolumeRecords& records, FileList& list)
      : image_(image.ff()),
        records_(records),
        list_(list),
        volume_(list.volumes.back()),
        byNumber_(entryNumbers, noIndex),
        byRecord_(entryNumbers, noIndex),
        chain_(image_, list, {4 * volume_.recordCount, 2 * volume_.size}),
        itemsLeft_(mostReads * volume_.size / folderItem) {}

  void Run() {
    FindHeads();
    MarkListed();
    const std::uint32_t root = byNumber_[rootEntry];
    volume_.hasRoot = root != noIndex;
    if (volume_.hasRoot) {
      heads_[root].isFolder = true;
      CollectOrphans();
      root_ = static_cast<std::uint32_t>(list_.entries.size());
      Place({root, noIndex});
    } else {
      CollectOrphans();
    }
    PlaceTops();
    PlaceRings();
    PlacePieces();
  }

 private:
  // A head to be placed in a folder, an index in entries.
  struct Task {
    std::uint32_t head;
    std::uint32_t parent;
    bool isOrphan = false;
  };

  void FindHeads() {
    for (int number = 0; number < static_cast<int>(entryNumbers); number += 2) {
      const std::uint32_t record = records_.Live(number);
      if (record == noIndex) continue;
      const auto header = ReadHeader(image_, list_.records[record]);
      if (!header) continue;
      byRecord_[static_cast<std::size_t>(number)] = static_cast<std::uint32_t>(heads_.size());
      heads_.push_back({.record = record,
                        .number = header->number,
                        .parent = header->parent,
                        .data = header->data,
                        .next = header->next,
                        .isFolder = header->IsFolder(),
                        .hasName = header->name.size > 0,
                        .isRegular = header->number + firstFileRecord == number});
    }
    // In the order of the records, as they were found.
    std::vector<std::uint32_t> order(heads_.size());
    for (std::uint32_t i = 0; i < order.size(); ++i) order[i] = i;
    std::ranges::sort(order, {}, [&](std::uint32_t head) { return heads_[head].record; });
    for (const std::uint32_t head : order) {
      std::uint32_t& found = byNumber_[heads_[head].number];
      if (found == noIndex || heads_[head].isRegular) found = head;
    }
    order_ = std::move(order);
    for (std::uint32_t head = 0; head < heads_.size(); ++head) {
      heads_[head].isFound = byNumber_[heads_[head].number] == head;
      MarkData(heads_[head]);
    }
  }

  void MarkData(const Head& head) {
    const int record = head.data + firstFileRecord;
    if (!head.isRegular || record >= static_cast<int>(entryNumbers)) return;
    const std::uint32_t other = byRecord_[static_cast<std::size_t>(record)];
    if (other != noIndex && !heads_[other].isRegular) heads_[other].isData = true;
  }

  // --- pieces and members ---

  void FollowPieces(FileEntry& entry, const Head& head) {
    chain_.Follow(entry, records_.Live(head.data + firstFileRecord), head.next, [&](std::uint16_t number) {
      const std::uint32_t piece = byNumber_[number];
      if (piece == noIndex) return ChainLink{};
      heads_[piece].isPiece = true;
      const std::uint32_t header = heads_[piece].record;
      return ChainLink{header, records_.Live(list_.records[header].number + 1), heads_[piece].next};
    });
  }

  // The entry numbers that a folder lists.
  std::vector<std::uint16_t> Members(FileEntry& folder) {
    std::vector<std::uint16_t> members;
    ContentReader content(image_, list_, folder);
    std::array<std::uint8_t, folderItem> item{};
    while (content.Read(item) >= 2) {
      if (itemsLeft_-- == 0) {
        itemsLeft_ = 0;
        folder.damage |= DamageCutOff;
        break;
      }
      const std::uint16_t number = WordAt(item, 0);
      if (number != 0 && number != 0xFFFF) members.push_back(number);
    }
    return members;
  }

  // Whether a head is a folder with or without a name. A piece whose folder is lost is neither: its members
  // stand where their parent numbers put them.
  [[nodiscard]] static bool Lists(const Head& head, bool hasName) {
    if (head.number == rootEntry) return hasName;
    return head.isFolder && head.hasName == hasName && (hasName || head.isListed);
  }

  void MarkMembers(std::uint32_t folder) {
    FileEntry entry{.number = heads_[folder].number};
    FollowPieces(entry, heads_[folder]);
    for (const std::uint16_t member : Members(entry))
      if (const std::uint32_t head = byNumber_[member]; head != noIndex && head != folder)
        heads_[head].isListed = true;
  }

  void MarkListed() {
    const Offset items = itemsLeft_;
    const std::size_t pieces = list_.pieces.size();
    const PieceChain fresh = chain_;
    for (const bool hasName : {true, false})
      for (const std::uint32_t folder : order_)
        if (Lists(heads_[folder], hasName)) MarkMembers(folder);
    list_.pieces.resize(pieces);
    itemsLeft_ = items;
    chain_ = fresh;
    for (Head& head : heads_) head.isPiece = false;
  }

  // --- placing ---

  // Orphans by the number of their folder. Without a root, its members are none.
  void CollectOrphans() {
    for (const std::uint32_t head : order_) {
      const Head& orphan = heads_[head];
      const std::uint32_t folder = byNumber_[orphan.parent];
      if (orphan.isListed || !orphan.hasName || orphan.isData || head == byNumber_[rootEntry]) continue;
      if (folder != noIndex && folder != head && heads_[folder].isFolder)
        orphans_.push_back(head);
      else
        tops_.push_back(head);
    }
    std::ranges::stable_sort(orphans_, {}, [&](std::uint32_t head) { return heads_[head].parent; });
  }

  // Places a head and, if it is a folder, everything in it.
  void Place(Task first) {
    std::vector<Task> tasks{first};
    while (!tasks.empty()) {
      const Task task = tasks.back();
      tasks.pop_back();
      if (heads_[task.head].isPlaced) {
        list_.entries[task.parent].damage |= DamageRing;
        continue;
      }
      const std::uint32_t index = Add(task);
      if (!heads_[task.head].isFolder) continue;
      const std::size_t members = tasks.size();
      PushMembers(index, tasks);
      for (const std::uint32_t orphan : OrphansOf(heads_[task.head])) tasks.push_back({orphan, index, true});
      std::reverse(tasks.begin() + static_cast<std::ptrdiff_t>(members), tasks.end());
    }
  }

  std::uint32_t Add(Task task) {
    Head& head = heads_[task.head];
    head.isPlaced = true;
    FileEntry entry{.header = head.record,
                    .parent = task.parent,
                    .number = head.number,
                    .volume = static_cast<std::uint16_t>(list_.volumes.size() - 1),
                    .isFolder = head.isFolder,
                    .isRoot = task.head == byNumber_[rootEntry]};
    FollowPieces(entry, head);
    if (list_.records[head.record].hasSecond || !head.isFound) entry.damage |= DamageSecond;
    const bool isOfMissingRoot = !volume_.hasRoot && head.parent == rootEntry;
    if (task.isOrphan && !isOfMissingRoot) entry.damage |= DamageOrphan;
    list_.entries.push_back(entry);
    return static_cast<std::uint32_t>(list_.entries.size() - 1);
  }

  void PushMembers(std::uint32_t folder, std::vector<Task>& tasks) {
    const std::size_t mostTasks = 0x1000 + 8 * heads_.size();
    for (const std::uint16_t member : Members(list_.entries[folder])) {
      const std::uint32_t head = byNumber_[member];
      if (head == noIndex)
        list_.entries[folder].damage |= DamageMissing;
      else if (heads_[head].isPlaced)
        list_.entries[folder].damage |= DamageRing;
      else if (tasks.size() < mostTasks)
        tasks.push_back({head, folder});
    }
  }

  [[nodiscard]] std::span<const std::uint32_t> OrphansOf(const Head& folder) const {
    if (!folder.isFound) return {};
    const auto parent = [&](std::uint32_t head) { return heads_[head].parent; };
    return {std::ranges::lower_bound(orphans_, folder.number, {}, parent),
            std::ranges::upper_bound(orphans_, folder.number, {}, parent)};
  }

  void PlaceTops() {
    for (const std::uint32_t head : tops_) PlaceUnderRoot(head);
  }

  // Folders that list each other, and what nothing else leads to.
  void PlaceRings() {
    for (const bool isFolder : {true, false})
      for (const std::uint32_t head : order_)
        if (heads_[head].isFolder == isFolder && heads_[head].hasName && !heads_[head].isData)
          PlaceUnderRoot(head);
  }

  // Pieces of no file: first those at which a chain begins.
  void PlacePieces() {
    std::vector<bool> follows(entryNumbers);
    for (const Head& head : heads_)
      if (!head.isPlaced && !head.isPiece && head.next != head.number) follows[head.next] = true;
    for (const bool isAny : {false, true})
      for (const std::uint32_t head : order_)
        if (IsPieceOfNothing(heads_[head]) && (isAny || !follows[heads_[head].number])) PlaceUnderRoot(head);
  }

  [[nodiscard]] bool IsPieceOfNothing(const Head& head) const {
    return !head.isPiece && !head.isData && records_.Live(head.data + firstFileRecord) != noIndex;
  }

  void PlaceUnderRoot(std::uint32_t head) {
    if (!heads_[head].isPlaced) Place({head, root_, true});
  }

  const Bytes image_;
  const VolumeRecords& records_;
  FileList& list_;
  FileVolumeRecords& volume_;
  std::vector<Head> heads_;              // by record number
  std::vector<std::uint32_t> order_;     // of heads, as their records were found
  std::vector<std::uint32_t> byNumber_;  // heads by entry number
  std::vector<std::uint32_t> byRecord_;  // heads by record number
  std::vector<std::uint32_t> orphans_;   // heads by the number of their folder
  std::vector<std::uint32_t> tops_;      // heads whose folder does not exist
  std::uint32_t root_ = noIndex;         // index in entries
  PieceChain chain_;
  Offset itemsLeft_;  // of all folders together
};

}  // namespace

void AddLiveEntries(const Fullflash& image, const VolumeRecords& records, FileList& list) {
  LiveBuilder(image, records, list).Run();
}

}  // namespace tarvelo
