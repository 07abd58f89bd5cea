// Changes of an open image: every editor writes through them, so that each change can be taken back and
// all of them can become a patch.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <vector>

#include "core/fullflash.h"
#include "core/region.h"

namespace tarvelo {

// Bytes of an image that were replaced, or are to be: as many old ones as new ones.
struct Change {
  Offset offset = 0;  // of the first byte
  std::vector<std::uint8_t> oldBytes;
  std::vector<std::uint8_t> newBytes;

  [[nodiscard]] Offset Size() const { return static_cast<Offset>(newBytes.size()); }
  [[nodiscard]] bool operator==(const Change&) const = default;
};

class ImageEdits {
 public:
  // Writes bytes over those at an offset, as one step. Bytes that stand there already are no step. Throws
  // std::out_of_range, and writes nothing, where they do not all lie within the image.
  void Write(Fullflash& image, Offset offset, Bytes bytes);
  // Writes the new bytes of several changes as one step; their old bytes do not matter. Throws likewise.
  void Write(Fullflash& image, std::span<const Change> changes);

  // Takes the last step back, resp. does it again. Returns where it was, the first changed byte and as
  // many as there are up to the last; nothing where there is no such step.
  std::optional<Region> Undo(Fullflash& image);
  std::optional<Region> Redo(Fullflash& image);
  [[nodiscard]] bool CanUndo() const { return done_ > 0; }
  [[nodiscard]] bool CanRedo() const { return done_ < steps_.size(); }

  // Whether a byte is another than when the image was opened.
  [[nodiscard]] bool IsChanged(const Fullflash& image, Offset offset) const;

  // What is another than when the image was opened, in order, within `size` bytes from an offset on.
  // Runs with at most `gap` unchanged bytes between them are one change.
  [[nodiscard]] std::vector<Change> Changes(const Fullflash& image, Offset from, Offset size,
                                            Offset gap = 0) const;
  [[nodiscard]] std::vector<Change> Changes(const Fullflash& image, Offset gap = 0) const;

  // Forgets everything: another image is open.
  void Clear();

 private:
  using Step = std::vector<Change>;

  void KeepOriginal(const Fullflash& image, Offset from, Offset size);

  std::vector<Step> steps_;
  std::size_t done_ = 0;                                   // of the steps; the others can be done again
  std::map<Offset, std::vector<std::uint8_t>> originals_;  // pages as they were opened, by their number
};

}  // namespace tarvelo
