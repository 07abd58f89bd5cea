// Finds where data of one dump is in a dump of another firmware version.
//
// Data is its bytes. Pointers in it differ in every version; they agree if they point to the same thing. A
// place is accepted if it and what surrounds it agree for long enough, and nothing else comes near in either
// dump.
#pragma once

#include <memory>
#include <optional>
#include <span>
#include <utility>
#include <vector>

#include "core/fullflash.h"
#include "port/gram_index.h"
#include "versions/code_pairing.h"

namespace tarvelo {

class DataPlaces {
 public:
  // All must outlive this. The indexes are made when the first place is asked for.
  DataPlaces(const Fullflash& old, const Fullflash& now, const CodePairing& pairing)
      : old_(old), now_(now), pairing_(pairing) {}

  struct Found {
    Offset offset = 0;    // in the new dump
    Offset agreeing = 0;  // bytes of it and around it
    Offset before = 0;    // those of them in front of it
    bool isUnique = false;
    bool isUniqueInOld = false;
  };
  // The place in the new dump that agrees most with a region of the old one; nothing if none does.
  [[nodiscard]] std::optional<Found> Find(const Region& region) const;

 private:
  struct Window {
    Offset from = 0;  // of the old dump
    Offset end = 0;
    bool isWhole = false;  // the region itself agrees

    [[nodiscard]] Offset Size() const { return end - from; }
  };
  // How far two places agree; `isOwn`: both are of the old dump.
  [[nodiscard]] Window Agreeing(const Region& region, Offset there, bool isOwn) const;
  [[nodiscard]] bool Agree(Offset old, Offset there, bool isOwn) const;
  // Whether four bytes are pointers of both versions to the same thing.
  [[nodiscard]] bool ArePointers(Offset old, Offset now) const;
  [[nodiscard]] std::optional<Offset> PointerAround(Offset old, Offset shift) const;
  [[nodiscard]] std::vector<Offset> Candidates(const Region& region, bool isOwn) const;
  [[nodiscard]] std::optional<Offset> Voted(const Region& region) const;
  struct Beside {
    std::optional<Offset> place;
    bool isSure = false;  // the code on both sides says so
  };
  [[nodiscard]] Beside BesideCode(const Region& region) const;
  [[nodiscard]] Region TextAround(const Region& region) const;
  [[nodiscard]] bool TellsEnough(const Window& window) const;
  [[nodiscard]] int FunctionAt(const Fullflash& image, Offset offset, bool isOld) const;
  void MakeIndexes() const;

  const Fullflash& old_;
  const Fullflash& now_;
  const CodePairing& pairing_;
  mutable std::unique_ptr<GramIndex> oldGrams_, newGrams_;
  mutable std::vector<std::pair<int, std::uint32_t>> pointers_;  // new units and the places that point there
};

}  // namespace tarvelo
