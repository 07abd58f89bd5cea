// Changes of an open image. Every editor writes through them, so that each change can be undone and all of
// them can become a patch.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <vector>

#include "core/fullflash.h"
#include "core/region.h"

namespace tarvelo {

// Bytes of an image that were replaced or will be, with as many old bytes as new ones.
struct Change {
  Offset offset = 0;  // of the first byte
  std::vector<std::uint8_t> oldBytes;
  std::vector<std::uint8_t> newBytes;

  [[nodiscard]] Offset Size() const { return static_cast<Offset>(newBytes.size()); }
  [[nodiscard]] bool operator==(const Change&) const = default;
};

class ImageEdits {
 public:
  // Overwrites the bytes at an offset, as one step. If nothing changes, there is no step, and the result is
  // false. Throws std::out_of_range, and writes nothing, unless all of the bytes are in the image.
  bool Write(Fullflash& image, Offset offset, Bytes bytes);
  // Writes the new bytes of several changes as one step; ignores their old bytes. The result and
  // what it throws are the same.
  bool Write(Fullflash& image, std::span<const Change> changes);

  // Undoes the last step, or redoes the step last undone. Both return the region from the first to the last
  // changed byte, or nothing if there is no such step.
  std::optional<Region> Undo(Fullflash& image);
  std::optional<Region> Redo(Fullflash& image);
  [[nodiscard]] bool CanUndo() const { return done_ > 0; }
  [[nodiscard]] bool CanRedo() const { return done_ < steps_.size(); }

  // Whether a byte differs from when the image was opened.
  [[nodiscard]] bool IsChanged(const Fullflash& image, Offset offset) const;

  // The changes since the image was opened, in order, within `size` bytes from an offset, or in the whole
  // image. Runs separated by at most `gap` unchanged bytes form one change.
  [[nodiscard]] std::vector<Change> Changes(const Fullflash& image, Offset from, Offset size,
                                            Offset gap = 0) const;
  [[nodiscard]] std::vector<Change> Changes(const Fullflash& image, Offset gap = 0) const;

  // Forgets everything, because another image is open.
  void Clear();

 private:
  using Step = std::vector<Change>;

  void KeepOriginal(const Fullflash& image, Offset from, Offset size);

  std::vector<Step> steps_;
  std::size_t done_ = 0;                                   // number of steps done; the others can be redone
  std::map<Offset, std::vector<std::uint8_t>> originals_;  // unchanged pages, by page number
};

}  // namespace tarvelo
