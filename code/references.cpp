#include "code/references.h"

#include <algorithm>

#include "code/instruction.h"
#include "code/nearby_code.h"
#include "code/register_pairs.h"
#include "core/scan_run.h"

namespace tarvelo {
namespace {

constexpr std::uint32_t pageMask = 0x3FFF;
constexpr std::uint32_t pageCount = 0x400;

constexpr int longestBranch = 258;

ReferenceKind KindOf(const Instruction& instruction) {
  return instruction.GetFlow() == Flow::Call ? ReferenceKind::Call : ReferenceKind::Jump;
}

// Of what says where it points by itself.
ReferenceSureness SurenessOf(CodeSign sign) {
  switch (sign) {
    case CodeSign::Code: return ReferenceSureness::Certain;
    case CodeSign::Unsure: return ReferenceSureness::Likely;
    default: return ReferenceSureness::Possible;
  }
}

// One search.
class Finder {
 public:
  Finder(const Fullflash& image, Offset target, const FunctionList& functions, const DppPages& dpps)
      : image_(image),
        bytes_(image.ff()),
        size_(static_cast<Offset>(bytes_.size())),
        address_(image.PhoneAddress(target)),
        dpps_(dpps),
        nearby_(image, functions) {}

  std::vector<Reference> Find(Progress& progress);

 private:
  // Examines the word at `at`, whose low 14 bits are those of the target.
  void Take(Offset at);
  void TakeFar(Offset at, const Instruction& instruction);
  void TakeNear(Offset at, const Instruction& instruction);
  void TakeMemory(Offset at, const Instruction& instruction);
  bool TakeAccess(Offset at);
  void TakeLoad(Offset at);
  void TakePointer(Offset at);
  void TakeRelatives();
  void TakeRelative(Offset at);

  [[nodiscard]] bool Names(std::uint16_t word, std::uint16_t pageOrSegment) const;
  template <typename Breaks>
  [[nodiscard]] bool LeadsTo(Offset from, Offset to, int most, Breaks breaks) const;
  [[nodiscard]] bool IsNumberNear(Offset at) const;
  [[nodiscard]] std::optional<std::size_t> Partner(const StraightLine& line) const;
  [[nodiscard]] bool IsCode(Offset at);
  [[nodiscard]] bool IsInTable(Offset at) const;
  [[nodiscard]] bool IsPointerLike(Offset at) const;
  [[nodiscard]] std::uint16_t Word(Offset at) const { return WordAt(bytes_, at); }
  void Add(Offset at, ReferenceKind kind, ReferenceSureness sure, int dpp = 0, Offset distance = 0);

  const Fullflash& image_;
  const Bytes bytes_;
  const Offset size_;
  const std::uint32_t address_;
  const DppPages& dpps_;
  NearbyCode nearby_;
  std::vector<Reference> found_;

  const std::uint32_t inSegment_ = address_ & 0xFFFF;
  const std::uint32_t segment_ = address_ >> 16;
  const std::uint32_t inPage_ = address_ & pageMask;
  const std::uint32_t page_ = address_ >> 14;
};

void Finder::Add(Offset at, ReferenceKind kind, ReferenceSureness sure, int dpp, Offset distance) {
  found_.push_back({static_cast<std::int32_t>(at), kind, sure, static_cast<std::uint8_t>(dpp),
                    static_cast<std::uint8_t>(distance)});
}

// Whether offset word and page, or offset word and segment, are the target's address.
bool Finder::Names(std::uint16_t word, std::uint16_t pageOrSegment) const {
  return (word == inPage_ && pageOrSegment == page_) || (word == inSegment_ && pageOrSegment == segment_);
}

std::vector<Reference> Finder::Find(Progress& progress) {
  const Offset first = image_.FirstWord();
  const Probe probe{0, inPage_, pageMask};
  const Sieve sieve(2, {&probe, 1});
  ProgressRun run(progress, 0, size_);
  if (size_ >= first + 2)
    ScanWithProgress(bytes_.subspan(static_cast<std::size_t>(first)), sieve, 2, 0, size_ - first - 2, run,
                     [&](Offset at) {
                       Take(at + first);
                       return false;
                     });
  TakeRelatives();
  const auto key = [](const Reference& reference) { return std::pair(reference.offset, reference.kind); };
  std::ranges::sort(found_, {}, key);
  const auto isSame = [&](const Reference& a, const Reference& b) { return key(a) == key(b); };
  found_.erase(std::unique(found_.begin(), found_.end(), isSame), found_.end());
  return std::move(found_);
}

void Finder::Take(Offset at) {
  if (at + 4 <= size_) TakePointer(at);
  if (at < 2) return;
  const Instruction instruction = Instruction::Decode(bytes_, at - 2);
  if (instruction.IsData() || instruction.Size() != 4) return;
  switch (instruction.Op()) {
    case op::callSegment:
    case op::jumpSegment: return TakeFar(at - 2, instruction);
    case op::callAbsolute:
    case op::jumpAbsolute:
    case op::pushAndCall: return TakeNear(at - 2, instruction);
    default: break;
  }
  if (instruction.HasMemory())
    TakeMemory(at - 2, instruction);
  else if (instruction.LoadsConstant())
    TakeLoad(at - 2);
}

// --- calls and jumps ---

void Finder::TakeFar(Offset at, const Instruction& instruction) {
  if (instruction.Word() != inSegment_ || instruction.Byte(1) != segment_) return;
  const CodeSign sign = nearby_.At(at);
  if (sign != CodeSign::Inside) Add(at, KindOf(instruction), SurenessOf(sign));
}

void Finder::TakeNear(Offset at, const Instruction& instruction) {
  if (instruction.Word() != inSegment_ || image_.PhoneAddress(at) >> 16 != segment_) return;
  const CodeSign sign = nearby_.At(at);
  if (sign == CodeSign::Code || sign == CodeSign::Unsure)
    Add(at, KindOf(instruction), ReferenceSureness::Likely);
}

// Relative targets wrap within their segment, so a branch to its start can be at its end.
void Finder::TakeRelatives() {
  if (address_ % 2 != 0) return;
  for (int distance = -longestBranch; distance <= longestBranch; distance += 2) {
    const std::uint32_t from =
        segment_ << 16 | ((inSegment_ + static_cast<std::uint32_t>(distance)) & 0xFFFF);
    const Offset at = static_cast<Offset>(from) - image_.CorrBase();
    if (at >= 0 && at + 2 <= size_) TakeRelative(at);
  }
}

void Finder::TakeRelative(Offset at) {
  const Instruction instruction = Instruction::Decode(bytes_, at);
  if (instruction.IsData()) return;
  const auto& args = instruction.Row().args;
  const bool isRelative =
      std::ranges::any_of(args, [](Arg arg) { return arg == Arg::Relative || arg == Arg::RelativeAt2; });
  if (!isRelative || instruction.Target(image_.PhoneAddress(at)) != address_) return;
  const CodeSign sign = nearby_.At(at);
  const Offset target = static_cast<Offset>(address_) - image_.CorrBase();
  const CodeSign there = nearby_.At(target);
  if (sign == CodeSign::Data || sign == CodeSign::Inside) return;
  if (there == CodeSign::Inside && target != at + 2) return;  // JB can lead into itself
  if (sign == CodeSign::Code || there != CodeSign::Data)
    Add(at, KindOf(instruction), ReferenceSureness::Likely);
}

// --- data ---

// Whether the instructions from `from` on lead straight to one at `to`, which is at most `most` further.
// `breaks` tells of the instructions in between which ones spoil it.
template <typename Breaks>
bool Finder::LeadsTo(Offset from, Offset to, int most, Breaks breaks) const {
  for (int steps = 0; from < to; ++steps) {
    const Instruction instruction = Instruction::Decode(bytes_, from);
    if (steps == most || instruction.IsData() || !instruction.FallsThrough()) return false;
    if (steps > 0 && breaks(instruction)) return false;
    from += instruction.Size();
  }
  return from == to;
}

void Finder::TakeMemory(Offset at, const Instruction& instruction) {
  if (TakeAccess(at)) return;
  const CodeSign sign = nearby_.At(at);
  if (sign == CodeSign::Data || sign == CodeSign::Inside) return;
  const std::optional<Offset> range = nearby_.RangeBefore(at);
  // Any other range is of another page or segment, or of one in a register.
  if (range && bytes_[static_cast<std::size_t>(*range)] != op::atomicOrExtend) return;
  const int dpp = instruction.Word() >> 14;
  std::optional<std::uint16_t> page = PageOf(dpps_, dpp);
  if (const std::optional<DppValue> value = nearby_.DppBefore(at, dpp)) page = value->page;
  if (page && *page != page_) return;
  Add(at, ReferenceKind::Data, page ? ReferenceSureness::Likely : ReferenceSureness::Possible, dpp,
      range ? at - *range : 0);
}

// Looks for the EXT* with a number in whose range the instruction is. It begins 4 to 16 bytes in front: it
// has 4 bytes, and up to 3 instructions may be in between.
bool Finder::TakeAccess(Offset at) {
  for (Offset from = at - 4; from >= std::max<Offset>(0, at - 16); from -= 2) {
    if (bytes_[static_cast<std::size_t>(from)] != op::extendByNumber) continue;
    const Instruction range = Instruction::Decode(bytes_, from);
    const auto replaces = [](const Instruction& other) { return other.BeginsRange(); };
    if (range.IsData() || !LeadsTo(from, at, range.RangeLength(), replaces)) continue;
    const CodeSign sign = nearby_.At(from);
    if (sign == CodeSign::Inside) continue;
    const bool isPage = (range.Byte(1) & 0x40) != 0;
    const bool isTarget =
        isPage ? range.Word() == page_ : range.Word() == segment_ && Word(at + 2) == inSegment_;
    if (isTarget) Add(at, ReferenceKind::Access, SurenessOf(sign), 0, at - from);
    if (isTarget || sign != CodeSign::Data) return true;
  }
  return false;
}

// A constant that may be an address's offset.
void Finder::TakeLoad(Offset at) {
  if (!IsNumberNear(at)) return;
  const StraightLine line = nearby_.LineAround(at);
  const std::optional<std::size_t> other = Partner(line);
  if (!other) return;
  const auto [from, to] = std::minmax(*other, StraightLine::here);
  Offset distance = 0;
  for (std::size_t i = from; i < to; ++i) distance += line.code[i].Size();
  const Offset first = *other < StraightLine::here ? at - distance : at;
  const CodeSign sign = nearby_.At(first);
  if (sign == CodeSign::Inside) return;
  Add(first, ReferenceKind::Pair,
      sign == CodeSign::Data ? ReferenceSureness::Possible : ReferenceSureness::Likely, 0, distance);
}

// Whether words around a MOV may hold the page or segment that belongs to it. That is quicker than to decode
// them.
bool Finder::IsNumberNear(Offset at) const {
  constexpr Offset farthest = 4 * StraightLine::here;
  const Offset last = std::min(at + farthest + 2, size_ - 2);
  for (Offset p = std::max(at - farthest, at & 1); p <= last; p += 2) {
    const std::uint32_t word = Word(p);
    if (word == page_ || word == segment_) return true;
    if ((word & 0xFF) == op::moveShort && (word >> 12 == page_ || word >> 12 == segment_)) return true;
  }
  return false;
}

// The MOV of the page or segment that belongs to the offset that the line's own MOV loads: that for the next
// register, or one nearer to it that fits.
std::optional<std::size_t> Finder::Partner(const StraightLine& line) const {
  constexpr std::size_t here = StraightLine::here;
  const Load own = *LoadOf(line.code[here]);
  const auto fits = [&](std::size_t k) {
    const std::optional<Load> load = LoadOf(line.code[k]);
    return load && load->reg != own.reg && Names(own.value, load->value);
  };
  std::optional<std::size_t> next = PartnerOf(line.All(), here - line.first);
  if (next) *next += line.first;
  if (next && fits(*next)) return next;
  // Whether the first of two MOVs is still in force behind the second.
  const auto lasts = [&](std::size_t from, std::size_t to) {
    const int reg = LoadOf(line.code[from])->reg;
    return std::none_of(line.code.begin() + from + 1, line.code.begin() + to,
                        [&](const Instruction& between) { return Replaces(between, reg); });
  };
  const std::size_t most = !next ? here + 1 : *next > here ? *next - here : here - *next;
  for (std::size_t distance = 1; distance < most; ++distance) {
    if (here + distance < line.end && fits(here + distance) && lasts(here, here + distance))
      return here + distance;
    if (here - distance >= line.first && fits(here - distance) && lasts(here - distance, here))
      return here - distance;
  }
  return {};
}

// --- pointers ---

// Firmware may also write a page pointer with an offset beyond the page.
void Finder::TakePointer(Offset at) {
  const std::uint16_t word = Word(at), number = Word(at + 2);
  if ((word | number) == 0) return;
  const bool isNamed = Names(word, number);
  if (!isNamed && (number >= pageCount || number * 0x4000U + word != address_)) return;
  const bool isSure = isNamed && !IsCode(at);
  Add(at, ReferenceKind::Pointer, isSure ? ReferenceSureness::Likely : ReferenceSureness::Possible);
}

// Whether a pointer's words are code: parts of its instructions, or a MOV of a constant that looks like a
// segment. Tables of pointers often decode as code.
bool Finder::IsCode(Offset at) {
  if (nearby_.IsListed(at) || nearby_.IsListed(at + 2)) return true;
  if (IsInTable(at)) return false;
  if (Instruction::Decode(bytes_, at).LoadsConstant()) {
    const CodeSign sign = nearby_.At(at);
    return sign == CodeSign::Code || sign == CodeSign::Unsure;
  }
  return nearby_.IsInCode(at) || nearby_.IsInCode(at + 2);
}

bool Finder::IsInTable(Offset at) const {
  const bool before = IsPointerLike(at - 4), after = IsPointerLike(at + 4);
  return (before && (after || IsPointerLike(at - 8))) || (after && IsPointerLike(at + 8));
}

// Whether the double word can be a pointer into the image.
bool Finder::IsPointerLike(Offset at) const {
  if (at < 0 || at + 4 > size_ || Instruction::Decode(bytes_, at).LoadsConstant()) return false;
  const Offset word = Word(at), number = Word(at + 2);
  const auto isInside = [&](Offset address) {
    return address >= image_.CorrBase() && address < image_.CorrBase() + size_;
  };
  return (word <= pageMask && isInside(number * 0x4000 + word)) || isInside(number * 0x10000 + word);
}

}  // namespace

std::optional<std::uint16_t> PageOf(const DppPages& dpps, int dpp) {
  const auto& page = dpps[static_cast<std::size_t>(dpp)];
  if (!page && dpp == 3) return std::uint16_t{3};
  return page;
}

std::vector<Reference> GetReferences(const Fullflash& image, Offset target, const FunctionList& functions,
                                     const DppPages& dpps, Progress& progress) {
  if (!image.PageMode()) return {};
  return Finder(image, target, functions, dpps).Find(progress);
}

}  // namespace tarvelo
