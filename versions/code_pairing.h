// Pairs the code of two firmware versions: which unit of the new version is which unit of the old one.
//
// Units that are equal but for what a linker moves pair first, where there is only one of them in each
// version. Then neighbours pair, units that paired code calls at the same places, and edited units between
// paired ones. What paired code refers to is evidence for or against all of these: twins that differ in
// addresses alone differ in it, and pairs that it contradicts are given up.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "core/progress.h"
#include "versions/code_units.h"
#include "versions/operand_votes.h"

namespace tarvelo {

// How the surroundings judge that an old operand is a new one.
enum class Verdict : std::uint8_t { Unknown, Agrees, Contradicts };

class CodePairing {
 public:
  // Both must outlive the pairing. The bases are those of the images: phone address minus offset.
  CodePairing(const CodeUnits& old, std::uint32_t oldBase, const CodeUnits& now, std::uint32_t nowBase,
              Progress& progress);

  // The new unit of an old one; -1: none.
  [[nodiscard]] int NewOf(int oldUnit) const { return newOf_[static_cast<std::size_t>(oldUnit)]; }
  [[nodiscard]] int OldOf(int newUnit) const { return oldOf_[static_cast<std::size_t>(newUnit)]; }
  [[nodiscard]] std::span<const int> NewOfAll() const { return newOf_; }
  [[nodiscard]] std::span<const int> OldOfAll() const { return oldOf_; }
  // Whether the unit and its pair agree in every instruction, but for what moves.
  [[nodiscard]] bool IsSame(int oldUnit) const;

  // Whether a call of the old unit can be sent to its pair: other code calls both at the same places, or they
  // are the same and nothing else is like them, or they are between other pairs that are.
  [[nodiscard]] bool IsSure(int oldUnit) const;

  // For each instruction of an old unit the index of its pair in the new unit, or -1. The units need not be
  // a pair.
  [[nodiscard]] std::vector<int> Aligned(int oldUnit, int newUnit) const;

  // What code outside an old unit says about one of its instructions being one of a new unit.
  [[nodiscard]] Verdict Judge(const UnitInstruction& old, int oldUnit, const UnitInstruction& now) const;
  [[nodiscard]] const OperandVotes& Votes() const { return votes_; }

  [[nodiscard]] std::span<const UnitInstruction> OldCode(int unit) const { return CodeOf(old_, unit); }
  [[nodiscard]] std::span<const UnitInstruction> NewCode(int unit) const { return CodeOf(now_, unit); }
  [[nodiscard]] const CodeUnits& Old() const { return old_; }
  [[nodiscard]] const CodeUnits& New() const { return now_; }
  // The units that begin at phone addresses; -1: none.
  [[nodiscard]] int OldUnitFrom(std::uint32_t address) const {
    return old_.UnitFrom(Offset{address} - oldBase_);
  }
  [[nodiscard]] int NewUnitFrom(std::uint32_t address) const {
    return now_.UnitFrom(Offset{address} - nowBase_);
  }

 private:
  static std::span<const UnitInstruction> CodeOf(const CodeUnits& units, int unit);

  void PairUnique();
  void PairNeighbours();
  void PairGap(int oldFrom, int oldEnd, int newFrom, int newEnd);
  void PairEdited(int oldFrom, int oldEnd, int newFrom, int newEnd);
  void PairCalled();
  void PairTwins();
  void GiveUpContradicted();
  void CollectVotes();
  void AddSecondBits(OperandVotes& votes, int oldUnit, std::size_t from, std::size_t end, int shift) const;
  [[nodiscard]] bool AreFunctions(int oldUnit, int newUnit) const;
  bool Pair(int oldUnit, int newUnit);
  [[nodiscard]] double Likeness(int oldUnit, int newUnit) const;
  [[nodiscard]] Verdict JudgeUnits(int oldUnit, int newUnit) const;

  struct Balance {
    int agreeing = 0;
    int contradicting = 0;
  };
  [[nodiscard]] Balance Weigh(int oldUnit, int newUnit) const;
  [[nodiscard]] OperandVotes::Tally CallsOf(int oldUnit, int newUnit) const;
  [[nodiscard]] bool HasTwins(int oldUnit) const;
  [[nodiscard]] bool IsBetweenPairs(int oldUnit, int step) const;

  const CodeUnits& old_;
  const CodeUnits& now_;
  std::uint32_t oldBase_;
  std::uint32_t nowBase_;
  std::vector<int> newOf_;
  std::vector<int> oldOf_;
  std::vector<std::uint64_t> refused_;  // pairs that were given up
  std::vector<std::uint64_t> twins_;    // hashes that several units of one version have
  OperandVotes votes_;
};

}  // namespace tarvelo
