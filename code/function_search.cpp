// Finds entries, the surest first, and follows the flow from each. What an instruction of a function calls is
// an entry. Anything else that names a place may be data that looks like it, so the place must look like the
// beginning of a function, and must not be part of one that is known.
#include <algorithm>
#include <bit>
#include <optional>
#include <utility>

#include "code/flow_walk.h"
#include "code/functions.h"
#include "code/surroundings.h"
#include "code/switch_tables.h"
#include "core/scan_run.h"

namespace tarvelo {
namespace {

// The first byte of CALLS is DA, that of JMPS is FA.
constexpr Probe farForms[] = {{.value = 0xDA, .mask = 0xDF}};

// One search. The image must begin with a word.
class FunctionSearch {
 public:
  FunctionSearch(const Fullflash& image, Progress& progress)
      : image_(image),
        size_(static_cast<Offset>(image.ff().size())),
        progress_(progress, 0, size_),
        switches_(image),
        walk_(image, switches_),
        entries_(size_),
        tried_(size_),
        calledOnce_(size_) {}

  // The functions, moved to offsets from `start` on.
  FunctionList Run(Offset start) {
    FindFarForms();
    TryTargets();
    TryPointers();
    TryTables();
    for (const std::uint32_t site : sites_) TryLoneCall(site);
    return List(start);
  }

 private:
  void FindFarForms() {
    Sieve sieve(2, farForms);
    ScanWithProgress(image_.ff(), sieve, 2, 0, size_ - 4, progress_, [&](Offset p) {
      if (FarTarget(p)) sites_.push_back(static_cast<std::uint32_t>(p));
      return false;
    });
  }

  // The target of a CALLS or JMPS, if it is a place in the image where code may be.
  [[nodiscard]] std::optional<Offset> FarTarget(Offset site) const {
    return Target(image_.Byte(site + 1), image_.Word(site + 2));
  }
  [[nodiscard]] std::optional<Offset> Target(std::uint16_t segment, std::uint16_t offset) const {
    const Offset target = (Offset{segment} << 16 | offset) - image_.CorrBase();
    if (target < 0 || target >= size_ || target % 2 != 0) return {};
    return target;
  }

  // The targets of calls and far jumps, where an end is in front. A function is tried before what is behind a
  // return within it, so that this is known to be part of it.
  void TryTargets() {
    WordSet named(size_);
    for (const std::uint32_t site : sites_) named.Add(*FarTarget(site));
    for (Offset place = named.Next(0, size_); place < size_; place = named.Next(place + 2, size_))
      TryNew(place);
  }

  // Likewise, what pairs of words point to. Some of these turn out to be parts of instructions.
  void TryPointers() {
    std::vector<std::pair<std::uint32_t, std::uint32_t>> named;  // target and place
    EachPointer([&](Offset place, Offset target) {
      if (!walk_.IsCode(target) && IsBehindEnd(target, image_, walk_))
        named.emplace_back(static_cast<std::uint32_t>(target), static_cast<std::uint32_t>(place));
    });
    std::ranges::sort(named);
    for (const auto& [target, place] : named)
      if (!walk_.IsCode(place) && !walk_.IsCode(place + 2)) TryNew(target);
  }

  // Entries behind data, in tables whose other pointers are known to be right.
  void TryTables() {
    EachPointer([&](Offset place, Offset target) {
      if (IsInTable(place) && IsNew(target) && !IsBehindCode(target, image_)) Try(target);
    });
  }

  // Calls take(place, target) for each pair of words outside known code that may point to code.
  template <typename Take>
  void EachPointer(Take take) {
    const std::uint32_t first = image_.PhoneAddress(0) >> 16;
    const std::uint32_t last = image_.PhoneAddress(size_ - 1) >> 16;
    const std::uint32_t mask = 0x10000 - std::bit_ceil((first ^ last) + 1);
    const Probe segments[] = {{.offset = 2, .value = first & mask, .mask = mask}};
    Sieve(2, segments).Each(image_.ff(), 0, size_ - 4, [&](Offset p) {
      if (walk_.IsCode(p) || walk_.IsCode(p + 2)) return false;
      if (const auto target = PointerTarget(p)) take(p, *target);
      return false;
    });
  }

  // A pointer to the address 0 is none.
  [[nodiscard]] std::optional<Offset> PointerTarget(Offset p) const {
    if (p < 0 || p + 4 > size_) return {};
    const std::uint16_t offset = image_.Word(p), segment = image_.Word(p + 2);
    if (segment > 0xFF || (segment == 0 && offset == 0)) return {};
    return Target(segment, offset);
  }

  // Whether two of the pointers beside the one at `place` point to entries.
  [[nodiscard]] bool IsInTable(Offset place) const {
    const auto isKnown = [&](Offset beside) {
      const auto target = PointerTarget(beside);
      return target && entries_.Has(*target);
    };
    const bool before = isKnown(place - 4), behind = isKnown(place + 4);
    if (before && behind) return true;
    return (before && isKnown(place - 8)) || (behind && isKnown(place + 8));
  }

  [[nodiscard]] bool IsNew(Offset place) const { return !tried_.Has(place) && !walk_.IsCode(place); }

  void TryNew(Offset place) {
    if (IsNew(place) && IsBehindEnd(place, image_, walk_)) Try(place);
  }

  // A call in code that nothing reaches. One is enough if the target is behind data, two if code seems to go
  // on into the target.
  void TryLoneCall(Offset site) {
    const std::optional<Offset> target = FarTarget(site);
    if (image_.Byte(site) != op::callSegment || !IsNew(*target)) return;
    if (walk_.IsCode(site) || !IsAmongCode(site, image_)) return;
    if (calledOnce_.Has(*target) || !IsBehindCode(*target, image_)) return Try(*target);
    calledOnce_.Add(*target);
  }

  // Takes a place as an entry if the flow from it is clean, and then all that its code calls, and so on.
  void Try(Offset place) {
    for (open_.assign(1, place); !open_.empty();) {
      const Offset entry = open_.back();
      open_.pop_back();
      if (tried_.Has(entry)) continue;
      tried_.Add(entry);
      if (!walk_.Walk(entry)) continue;
      entries_.Add(entry);
      const FlowWalk::Named& named = walk_.Names();
      open_.insert(open_.end(), named.far.begin(), named.far.end());
      open_.insert(open_.end(), named.near.begin(), named.near.end());
      nearCalls_.insert(nearCalls_.end(), named.near.begin(), named.near.end());
      for (const Offset other : named.other)
        if (IsNew(other) && IsBehindEnd(other, image_, walk_)) open_.push_back(other);
    }
  }

  FunctionList List(Offset start) {
    std::vector<Function> functions;
    FlowWalk again(image_, switches_);
    for (Offset entry = entries_.Next(0, size_); entry < size_;) {
      const Offset next = entries_.Next(entry + 2, size_);
      functions.push_back({{entry, EndOf(entry, next, again) - entry}});
      entry = next;
    }
    CountCalls(functions);
    for (Function& function : functions) function.code.offset += start;
    return {std::move(functions), std::move(walk_.Starts()).Take(), start};
  }

  // The end of the function at `entry`. If there is a gap in the code up to the next entry, the code behind
  // it may be another function's, or that of no function.
  Offset EndOf(Offset entry, Offset next, FlowWalk& again) {
    const Offset end = walk_.Code().NextFree(entry, next);
    if (walk_.Code().Next(end, next) == next) return end;
    if (!again.Walk(entry, next)) return end;
    Offset last = entry;
    for (Offset p = entry; p < next; p = again.Code().Next(last, next)) last = again.Code().NextFree(p, next);
    for (Offset p = walk_.Starts().Next(last, next); p < next; p = walk_.Starts().Next(p + 2, next))
      walk_.Starts().Remove(p);
    return last;
  }

  void CountCalls(std::vector<Function>& functions) {
    const auto count = [&](Offset target) {
      ++std::ranges::lower_bound(functions, target, {}, [](const Function& f) {
          return f.code.offset;
        })->calls;
    };
    for (const Offset target : nearCalls_)
      if (entries_.Has(target)) count(target);
    for (const std::uint32_t site : sites_) {
      if (image_.Byte(site) != op::callSegment) continue;
      const Offset target = *FarTarget(site);
      if (!entries_.Has(target)) continue;
      if (walk_.IsStart(site) || (!walk_.IsCode(site) && IsAmongCode(site, image_))) count(target);
    }
  }

  const Fullflash& image_;
  const Offset size_;
  ProgressRun progress_;
  SwitchTables switches_;
  FlowWalk walk_;
  WordSet entries_, tried_, calledOnce_;
  std::vector<std::uint32_t> sites_;  // of CALLS and JMPS, or of bytes that look like them
  std::vector<Offset> open_, nearCalls_;
};

}  // namespace

FunctionList GetFunctions(const Fullflash& image, Progress& progress) {
  if (!image.IsOpen() || !image.PageMode()) return {};
  if (image.FirstWord() == 0) return FunctionSearch(image, progress).Run(0);
  Fullflash even(image.ff().subspan(1));
  even.SetCorrBase(image.CorrBase() + 1);
  if (!even.IsOpen()) return {};
  return FunctionSearch(even, progress).Run(1);
}

}  // namespace tarvelo
