#include "core/image_edits.h"

#include <algorithm>

namespace tarvelo {
namespace {

constexpr Offset pageSize = 0x1000;

Region RegionOf(std::span<const Change> step) {
  Offset first = step.front().offset;
  Offset end = first;
  for (const Change& change : step) {
    first = std::min(first, change.offset);
    end = std::max(end, change.offset + change.Size());
  }
  return {first, end - first};
}

// Adds a changed byte to the last change, or starts a new change if it is too far behind the last.
void Add(std::vector<Change>& changes, const Fullflash& image, Offset offset, std::uint8_t old, Offset gap) {
  Change* last = changes.empty() ? nullptr : &changes.back();
  if (!last || offset > last->offset + last->Size() + gap) {
    changes.push_back({offset, {}, {}});
    last = &changes.back();
  }
  for (Offset between = last->offset + last->Size(); between < offset; ++between) {
    last->oldBytes.push_back(image.Byte(between));
    last->newBytes.push_back(image.Byte(between));
  }
  last->oldBytes.push_back(old);
  last->newBytes.push_back(image.Byte(offset));
}

}  // namespace

bool ImageEdits::Write(Fullflash& image, Offset offset, Bytes bytes) {
  return Write(image, std::vector{Change{offset, {}, {bytes.begin(), bytes.end()}}});
}

bool ImageEdits::Write(Fullflash& image, std::span<const Change> changes) {
  for (const Change& wanted : changes) (void)image.Region(wanted.offset, wanted.Size());
  Step step;
  for (const Change& wanted : changes) {
    const Bytes old = image.Region(wanted.offset, wanted.Size());
    if (std::ranges::equal(old, wanted.newBytes)) continue;
    step.push_back({wanted.offset, {old.begin(), old.end()}, wanted.newBytes});
    KeepOriginal(image, wanted.offset, wanted.Size());
    image.Write(wanted.offset, wanted.newBytes);
  }
  if (step.empty()) return false;
  steps_.resize(done_);
  steps_.push_back(std::move(step));
  ++done_;
  return true;
}

std::optional<Region> ImageEdits::Undo(Fullflash& image) {
  if (!CanUndo()) return {};
  const Step& step = steps_[--done_];
  for (auto change = step.rbegin(); change != step.rend(); ++change)
    image.Write(change->offset, change->oldBytes);
  return RegionOf(step);
}

std::optional<Region> ImageEdits::Redo(Fullflash& image) {
  if (!CanRedo()) return {};
  const Step& step = steps_[done_++];
  for (const Change& change : step) image.Write(change.offset, change.newBytes);
  return RegionOf(step);
}

bool ImageEdits::IsChanged(const Fullflash& image, Offset offset) const {
  const auto page = originals_.find(offset / pageSize);
  return page != originals_.end() &&
         page->second[static_cast<std::size_t>(offset % pageSize)] != image.Byte(offset);
}

std::vector<Change> ImageEdits::Changes(const Fullflash& image, Offset from, Offset size, Offset gap) const {
  std::vector<Change> changes;
  const Offset end = std::min<Offset>(from + size, std::ssize(image.ff()));
  for (auto page = originals_.lower_bound(from / pageSize); page != originals_.end(); ++page) {
    const Offset start = page->first * pageSize;
    if (start >= end) break;
    for (Offset i = std::max<Offset>(0, from - start);
         i < std::min<Offset>(std::ssize(page->second), end - start); ++i)
      if (const std::uint8_t old = page->second[static_cast<std::size_t>(i)]; old != image.Byte(start + i))
        Add(changes, image, start + i, old, gap);
  }
  return changes;
}

std::vector<Change> ImageEdits::Changes(const Fullflash& image, Offset gap) const {
  return Changes(image, 0, std::ssize(image.ff()), gap);
}

void ImageEdits::Clear() {
  steps_.clear();
  done_ = 0;
  originals_.clear();
}

void ImageEdits::KeepOriginal(const Fullflash& image, Offset from, Offset size) {
  for (Offset number = from / pageSize; number <= (from + size - 1) / pageSize; ++number) {
    if (originals_.contains(number)) continue;
    const Offset start = number * pageSize;
    const Bytes page = image.Region(start, std::min<Offset>(pageSize, std::ssize(image.ff()) - start));
    originals_.emplace(number, std::vector<std::uint8_t>(page.begin(), page.end()));
  }
}

}  // namespace tarvelo
