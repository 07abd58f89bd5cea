// Finds where a place of one dump is in a dump of another firmware version.
//
// Code is found through the pairing of both versions (versions/code_pairing.h) and accepted only if enough
// instructions around it agree, what they refer to does not contradict, and no other place comes near. Data
// is found by its bytes (port/data_places.h).
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "core/fullflash.h"
#include "port/data_places.h"
#include "port/unpaired_code.h"
#include "versions/code_pairing.h"

namespace tarvelo {

// Why a patch line is not carried over.
enum class PortRefusal : std::uint8_t {
  NotOld,         // its old bytes are not those of the old dump
  NotUnique,      // the place is not unique in the old dump
  NoPlace,        // the new dump has no such place
  SeveralPlaces,  // the new dump has several
  NoAddress,      // an address in the new bytes could not be carried over
  NotEmpty,       // the new dump has something where the old one is empty
};

struct NewPlace {
  std::optional<PortRefusal> refusal;  // nothing: found
  Offset offset = 0;
  int context = 0;  // instructions that agree around it, at most 60; for data bytes
};

class PlaceFinder {
 public:
  // All must outlive the finder.
  PlaceFinder(const Fullflash& old, const Fullflash& now, const CodePairing& pairing)
      : old_(old),
        now_(now),
        pairing_(pairing),
        data_(old, now, pairing),
        gone_(pairing.Old(), pairing.NewOfAll()),
        added_(pairing.New(), pairing.OldOfAll()) {}

  // Where a region of the old dump, which must be within it, begins in the new one.
  [[nodiscard]] NewPlace Find(const Region& region) const;
  // The new phone address of an address of code or data in the old dump; nothing if it is not certain.
  // Addresses outside the image are those of internal memory.
  [[nodiscard]] std::optional<std::uint32_t> CodeAddress(std::uint32_t address) const;
  [[nodiscard]] std::optional<std::uint32_t> DataAddress(std::uint32_t address) const;
  // Likewise of an instruction, also if a function begins with it.
  [[nodiscard]] std::optional<std::uint32_t> CodeInside(std::uint32_t address) const;

 private:
  struct Match {
    int oldUnit, newUnit;
    int first, last;  // instructions of the old unit
    int shift;        // of the new unit's instructions against them
    int begin, end;   // the instructions around them that agree, begin .. end - 1
  };

  [[nodiscard]] NewPlace InCode(const Region& region, int unit) const;
  [[nodiscard]] bool IsElsewhere(std::uint32_t address) const;
  [[nodiscard]] std::optional<std::uint32_t> Outside(const Movable& old) const;
  [[nodiscard]] NewPlace InData(const Region& region) const;
  [[nodiscard]] std::optional<Match> Matched(int unit, int first, int last) const;
  [[nodiscard]] int Context(const Match& match) const;
  [[nodiscard]] int Agreeing(const Match& match, int shift, int reach) const;
  [[nodiscard]] bool IsContradicted(const Match& match) const;
  [[nodiscard]] bool HasEvidence(const Match& match) const;
  [[nodiscard]] bool IsAmbiguous(const Match& match) const;
  [[nodiscard]] bool HasRival(const Match& match) const;
  [[nodiscard]] bool IsRival(std::span<const UnitInstruction> old, int oldUnit,
                             std::span<const UnitInstruction> now, int own) const;
  [[nodiscard]] Verdict JudgeAt(const Match& match, int instruction, int shift) const;

  const Fullflash& old_;
  const Fullflash& now_;
  const CodePairing& pairing_;
  DataPlaces data_;
  UnpairedCode gone_, added_;  // of the old and new version
};

}  // namespace tarvelo
