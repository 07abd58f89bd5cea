#include "port/port.h"

#include <algorithm>
#include <set>

#include "code/masked_pattern.h"
#include "code/nearby_code.h"
#include "code/sweep.h"
#include "port/area_uses.h"
#include "port/brought_code.h"
#include "port/free_areas.h"
#include "port/marked_bytes.h"
#include "port/port_operands.h"
#include "port/port_pointers.h"

namespace tarvelo {
namespace {

constexpr int instructionsAround = 8;  // of a piece of code, that operands may belong together with

class Porter {
 public:
  Porter(std::span<const PatchChange> changes, const Fullflash& old, const Fullflash& now,
         const CodePairing& pairing, Progress& progress, std::span<const AreaMove> moves)
      : run_(progress, 0, std::ssize(changes)),
        old_(old),
        now_(now),
        pairing_(pairing),
        places_(old, now, pairing),
        image_(changes, old, pairing.Old()),
        brought_(image_, pairing.Old()),
        nearby_(old, noFunctions_),
        uses_(image_, brought_.Blocks()),
        ported_(changes.size()) {
    maps_.code = [this](std::uint32_t address) { return Mapped(address, true); };
    maps_.jump = [this](std::uint32_t address) { return places_.CodeInside(address); };
    maps_.data = [this](std::uint32_t address) { return Mapped(address, false); };
    maps_.areas = BroughtAreas(image_, now, moves);
  }

  std::vector<PortedChange> Run() {
    for (PortedChange& ported : ported_) ported.refusal = PortRefusal::NotOld;
    for (const PatchedPiece& piece : image_.Pieces()) {
      uses_.Begin(piece);
      Step();
      switch (piece.kind) {
        case PatchedPiece::Kind::Code: Code(piece); break;
        case PatchedPiece::Kind::Data: Data(piece); break;
        case PatchedPiece::Kind::Erased: Erased(piece); break;
      }
    }
    RefuseUsersOfRefused();
    return std::move(ported_);
  }

  // The old places of the moved areas that carried changes elsewhere refer to.
  [[nodiscard]] const std::set<Offset>& Referred() const { return referred_; }

 private:
  void RefuseUsersOfRefused() {
    std::vector<std::size_t> refused;
    for (std::size_t i = 0; i < ported_.size(); ++i)
      if (ported_[i].refusal) refused.push_back(i);
    for (const std::size_t i : uses_.UsersOf(std::move(refused)))
      ported_[i] = {.refusal = PortRefusal::NoAddress};
  }

  // Reports the progress; long pieces report it, too, and can be stopped.
  void Step() { run_.At(done_); }

  void Refuse(const PatchedPiece& piece, PortRefusal refusal) {
    done_ += std::ssize(piece.changes);
    for (const std::size_t i : piece.changes) ported_[i].refusal = refusal;
  }

  void Code(const PatchedPiece& piece) {
    const NewPlace place = places_.Find(piece.region);
    if (place.refusal) return Refuse(piece, *place.refusal);
    if (!HasRegion(now_, {place.offset, piece.region.size})) return Refuse(piece, PortRefusal::NoPlace);
    const PatchedCode code{image_.Patched(), piece.region, Around(piece.region), place.offset};
    Take(piece, place, CarryOperands(code, old_, now_, pairing_, maps_));
  }

  // Some instructions in front of a piece and behind it, as they are with the patch.
  [[nodiscard]] Region Around(const Region& piece) const {
    const CodeUnits& units = pairing_.Old();
    const CodeUnit& unit = units.units[static_cast<std::size_t>(units.UnitAt(piece.offset))];
    const int first = units.InstructionAt(piece.offset);
    const int most = std::min(first - static_cast<int>(unit.first), instructionsAround);
    Offset from = piece.offset;
    for (int count = most; count > 0 && from == piece.offset; --count) {
      const Offset start = units.instructions[static_cast<std::size_t>(first - count)].offset;
      Offset at = start;
      while (at < piece.offset) at += Instruction::Decode(image_.Patched(), at).Size();
      if (at == piece.offset) from = start;
    }
    Offset end = piece.End();
    for (int count = 0; count < instructionsAround && end < unit.code.End(); ++count)
      end += Instruction::Decode(image_.Patched(), end).Size();
    return {from, end - from};
  }

  // Data is found as a whole, or else change by change.
  void Data(const PatchedPiece& piece) {
    const NewPlace place = InData(piece.region);
    if (!place.refusal) return TakeData(piece, place);
    for (std::size_t k = 0; k < piece.changes.size(); ++k) {
      Step();
      uses_.BeginChange(piece, k);
      const std::size_t i = piece.changes[k];
      const Change& change = image_.Changes()[i].change;
      const PatchedPiece one{piece.kind, {change.offset, std::ssize(change.oldBytes)}, {i}};
      const NewPlace there = piece.changes.size() == 1 ? place : InData(one.region);
      if (there.refusal)
        Refuse(one, *there.refusal);
      else
        TakeData(one, there);
    }
  }

  [[nodiscard]] NewPlace InData(const Region& region) const {
    const NewPlace place = places_.Find(region);
    if (place.refusal) return place;
    // What reaches into code is no data.
    if (pairing_.Old().UnitAt(region.End() - 1) >= 0) return {PortRefusal::NoPlace};
    return place;
  }

  // Whether a region that belongs to no unit is code all the same, and the patch puts addresses into it.
  [[nodiscard]] bool IsCodeWithAddresses(const Region& region) {
    const Offset from = std::max(old_.FirstWord(), old_.WordStart(region.offset));
    if (!nearby_.IsInCode(from)) return false;
    bool hasAddress = false;
    Sweep(image_.Patched(), from, region.End(),
          [&](Offset, const Instruction& instruction, const ExtRange& range) {
            hasAddress = MovableBytes(instruction, range) != 0;
            return hasAddress;
          });
    return hasAddress;
  }

  void TakeData(const PatchedPiece& piece, const NewPlace& place) {
    if (IsCodeWithAddresses(piece.region)) return Refuse(piece, PortRefusal::NoAddress);
    Take(piece, place, AsData(piece.region, place.offset));
  }

  // Code that a patch brings into an empty area.
  void Erased(const PatchedPiece& piece) {
    const auto there = maps_.areas.NewOf(piece.region.offset);
    if (!there) return Refuse(piece, PortRefusal::NotEmpty);
    const bool moves = maps_.areas.MovedAt(old_.PhoneAddress(piece.region.offset)) != nullptr;
    const Offset smallestData = moves ? 1 : 4;
    CarriedCode carried;
    carried.bytes = PatchedBytes(piece.region);
    const auto take = [&](const Region& region, const CarriedCode& part) {
      std::ranges::copy(part.bytes, carried.bytes.begin() + (region.offset - piece.region.offset));
      carried.failed.insert(carried.failed.end(), part.failed.begin(), part.failed.end());
    };
    const auto newOf = [&](Offset old) { return old - piece.region.offset + *there; };
    for (const auto& [block, isCode] : uses_.BlocksOf(piece)) {
      uses_.BeginBlock(piece, block);
      const PatchedCode code{image_.Patched(), block, block, newOf(block.offset)};
      if (isCode)
        take(block, CarryOperands(code, old_, now_, pairing_, maps_));
      else if (block.size >= smallestData)
        take(block, AsData(block, newOf(block.offset)));
    }
    uses_.End();
    if (moves)
      for (const Region& part : brought_.AssumedIn(piece))
        FailAsData(part, newOf(part.offset), piece, carried);
    Take(piece, {{}, *there, 0}, carried);
  }

  [[nodiscard]] std::vector<std::uint8_t> PatchedBytes(const Region& region) const {
    const auto first = image_.Patched().begin() + region.offset;
    return {first, first + region.size};
  }

  [[nodiscard]] CarriedCode AsData(const Region& region, Offset there) {
    CarriedCode carried;
    carried.bytes = PatchedBytes(region);
    carried.failed =
        CarryPointers(carried.bytes, {region, there}, image_.Patched(), old_, now_, pairing_, maps_);
    return carried;
  }

  // Fails what would be carried in another way if a part of a piece were data.
  void FailAsData(const Region& part, Offset there, const PatchedPiece& piece, CarriedCode& carried) {
    const CarriedCode data = AsData(part, there);
    carried.failed.insert(carried.failed.end(), data.failed.begin(), data.failed.end());
    const std::vector<std::uint8_t> patched = PatchedBytes(part);
    const auto asCode = carried.bytes.begin() + (part.offset - piece.region.offset);
    for (Offset k = 0; k < part.size; ++k) {
      const std::uint8_t byte = data.bytes[static_cast<std::size_t>(k)];
      if (byte != patched[static_cast<std::size_t>(k)] && byte != asCode[k])
        carried.failed.push_back({part.offset + k, 1});
    }
  }

  // Gives each change of a piece its part, unless a byte of it fails.
  void Take(const PatchedPiece& piece, const NewPlace& place, const CarriedCode& carried) {
    done_ += std::ssize(piece.changes);
    MarkedBytes failed(piece.region);
    for (const Region& region : carried.failed) failed.Mark(region);
    if (piece.kind == PatchedPiece::Kind::Code) FailUncovered(piece, place, carried.bytes, failed);
    for (const std::size_t i : piece.changes) {
      const Change& change = image_.Changes()[i].change;
      const Region region{change.offset, std::ssize(change.oldBytes)};
      PortedChange& ported = ported_[i];
      if (failed.Touch(region)) {
        ported.refusal = PortRefusal::NoAddress;
        continue;
      }
      ported.refusal.reset();
      ported.offset = place.offset + region.offset - piece.region.offset;
      ported.context = place.context;
      const Bytes found = now_.Region(ported.offset, region.size);
      ported.oldBytes.assign(found.begin(), found.end());
      // Of changes that overlap each keeps its own bytes where nothing is carried.
      ported.newBytes = change.newBytes;
      for (std::size_t k = 0; k < ported.newBytes.size(); ++k) {
        const auto at = static_cast<std::size_t>(region.offset) + k;
        const std::uint8_t byte = carried.bytes[at - static_cast<std::size_t>(piece.region.offset)];
        if (byte != image_.Patched()[at]) ported.newBytes[k] = byte;
      }
    }
  }

  // Bytes of a piece of code that no change has must be what the new dump has.
  void FailUncovered(const PatchedPiece& piece, const NewPlace& place, Bytes bytes,
                     MarkedBytes& failed) const {
    MarkedBytes covered(piece.region);
    for (const std::size_t i : piece.changes) {
      const Change& change = image_.Changes()[i].change;
      covered.Mark({change.offset, std::ssize(change.oldBytes)});
    }
    const Bytes there = now_.Region(place.offset, piece.region.size);
    Sweep(image_.Patched(), piece.region.offset, piece.region.End(),
          [&](Offset at, const Instruction& instruction, const ExtRange&) {
            for (Offset k = at; k < std::min(at + instruction.Size(), piece.region.End()); ++k) {
              const auto byte = static_cast<std::size_t>(k - piece.region.offset);
              if (!covered.Touch({k, 1}) && bytes[byte] != there[byte]) failed.Mark({at, instruction.Size()});
            }
            return false;
          });
  }

  // A new address for an old one, or for what the patch brings along.
  [[nodiscard]] std::optional<std::uint32_t> Mapped(std::uint32_t address, bool isCode) {
    const Offset offset = Offset{address} - old_.CorrBase();
    const AreaMove* const moved = maps_.areas.MovedAt(address);
    if (const PatchedPiece* const used = image_.ErasedAt(moved ? moved->from.offset : offset)) {
      if (moved && used != uses_.Piece()) referred_.insert(moved->from.offset);
      uses_.Add(offset);
      const auto there = maps_.areas.NewOf(offset);
      return there ? std::optional(now_.PhoneAddress(*there)) : std::nullopt;
    }
    return isCode ? places_.CodeAddress(address) : places_.DataAddress(address);
  }

  ProgressRun run_;
  std::int64_t done_ = 0;  // changes
  const Fullflash& old_;
  const Fullflash& now_;
  const CodePairing& pairing_;
  PlaceFinder places_;
  PatchedImage image_;
  BroughtCode brought_;
  FunctionList noFunctions_;
  NearbyCode nearby_;
  CarryMaps maps_;
  AreaUses uses_;
  std::set<Offset> referred_;
  std::vector<PortedChange> ported_;
};

// A free place for each erased piece that cannot stay; all by the same distance if possible.
std::vector<AreaMove> FreePlaces(const PatchedImage& image, const Fullflash& now,
                                 std::span<const Region> used) {
  const BroughtAreas staying(image, now, {});
  std::optional<FreeAreas> areas;
  std::vector<AreaMove> moves;
  for (const PatchedPiece& piece : image.Pieces()) {
    const Region& region = piece.region;
    if (piece.kind != PatchedPiece::Kind::Erased || staying.NewOf(region.offset)) continue;
    if (!areas) {
      areas.emplace(now, used);
      for (const AreaMove& area : staying.All()) areas->Take({area.to, area.from.size});
    }
    const Offset from = image.Old().PhoneAddress(region.offset);
    std::optional<Offset> to;
    if (!moves.empty()) to = moves.back().to + region.offset - moves.back().from.offset;
    if (!to || !areas->Suits(from, region.size, *to)) to = areas->Find(from, region.size);
    if (!to) continue;
    moves.push_back({region, *to});
    areas->Take({*to, region.size});
  }
  return moves;
}

}  // namespace

std::string_view ReasonOf(PortRefusal refusal) {
  switch (refusal) {
    case PortRefusal::NotOld: return "the old bytes are not those of the old dump";
    case PortRefusal::NotUnique: return "the place is not unique in the old dump";
    case PortRefusal::NoPlace: return "there is no such place in the new dump";
    case PortRefusal::SeveralPlaces: return "there are several such places in the new dump";
    case PortRefusal::NoAddress: return "an address in the new bytes could not be carried over";
    case PortRefusal::NotEmpty: return "the new dump is not empty there";
  }
  return {};
}

std::vector<PortedChange> PortChanges(std::span<const PatchChange> changes, const Fullflash& old,
                                      const Fullflash& now, const CodePairing& pairing, Progress& progress,
                                      std::span<const AreaMove> moves) {
  return Porter(changes, old, now, pairing, progress, moves).Run();
}

bool FindsAreasUsed(std::span<const PortedChange> ported) {
  return std::ranges::any_of(
      ported, [](const PortedChange& change) { return change.refusal == PortRefusal::NotEmpty; });
}

std::vector<AreaMove> OfferAreas(std::span<const PatchChange> changes, const Fullflash& old,
                                 const Fullflash& now, const CodePairing& pairing, Progress& progress,
                                 std::span<const Region> used) {
  std::vector<AreaMove> moves = FreePlaces(PatchedImage(changes, old, pairing.Old()), now, used);
  if (moves.empty()) return moves;
  Porter porter(changes, old, now, pairing, progress, moves);
  porter.Run();
  std::erase_if(moves, [&](const AreaMove& move) { return !porter.Referred().contains(move.from.offset); });
  return moves;
}

}  // namespace tarvelo
