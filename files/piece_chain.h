// Follows the pieces of a file.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "core/fullflash.h"
#include "files/volume_records.h"

namespace tarvelo {

// Entries have numbers below this.
inline constexpr std::size_t entryNumbers = 0x10000;

// A further piece: the header that stands for it and the record with its bytes, indices in records.
struct ChainLink {
  std::uint32_t header = noIndex;  // none: no such header
  std::uint32_t record = noIndex;  // none: no such record
  std::uint16_t next = noPiece;
};

// Limits of all chains of a volume together, so that crossed chains cost no more than whole ones.
struct ChainLimits {
  std::size_t pieces = 0;
  Offset fileSize = 0;  // of each file
};

// Collects the pieces of one file after another.
class PieceChain {
 public:
  PieceChain(Bytes image, FileList& list, ChainLimits limits)
      : image_(image), list_(&list), limits_(limits), seen_(0x10000) {}

  // Adds the pieces of an entry to the list and states them in the entry: the record `first`, which may be
  // noIndex (then the file is empty and has no further pieces), and those that follow. link(n) gives the
  // piece of entry n. Stops at the first damage. A record of 0 bytes outside the image is no piece.
  template <typename Link>
  void Follow(FileEntry& entry, std::uint32_t first, std::uint16_t next, Link link) {
    Begin(entry);
    if (first == noIndex || !Add(entry, first)) return;
    while (next != noPiece) {
      if (!See(next)) return Mark(entry, DamageRing);
      const ChainLink piece = link(next);
      if (piece.record == noIndex) return Mark(entry, DamageCutOff);
      if (!Add(entry, piece.record)) return;
      next = piece.next;
    }
  }

 private:
  void Begin(FileEntry& entry);
  // Adds a record. Returns whether all of it is there.
  bool Add(FileEntry& entry, std::uint32_t record);
  // False if this chain has seen the number before.
  bool See(std::uint16_t number);
  static void Mark(FileEntry& entry, FileDamage damage) { entry.damage |= damage; }

  Bytes image_;
  FileList* list_;
  ChainLimits limits_;
  std::vector<std::uint32_t> seen_;  // by entry number: the last chain that saw it
  std::uint32_t chain_ = 0;
  Offset size_ = 0;  // of this chain
};

}  // namespace tarvelo
