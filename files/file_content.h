// The bytes of a file, and their replacement.
#pragma once

#include <span>
#include <vector>

#include "core/fullflash.h"
#include "core/image_edits.h"
#include "files/file_list.h"

namespace tarvelo {

// The pieces of an entry in order, as far as they are in the image.
[[nodiscard]] std::vector<Region> PiecesOf(const Fullflash& image, const FileList& list,
                                           const FileEntry& entry);

// The bytes of an entry that can be read: those of its pieces together.
[[nodiscard]] Offset SizeOf(const Fullflash& image, const FileList& list, const FileEntry& entry);
[[nodiscard]] std::vector<std::uint8_t> ContentOf(const Fullflash& image, const FileList& list,
                                                  const FileEntry& entry);

// Reads the bytes of an entry from the first to the last. All of its arguments must outlive it.
class ContentReader {
 public:
  ContentReader(Bytes image, const FileList& list, const FileEntry& entry)
      : image_(image), list_(list), entry_(entry) {}

  // Fills `bytes` with the next bytes. Returns how many there were.
  std::size_t Read(std::span<std::uint8_t> bytes);

 private:
  Bytes image_;
  const FileList& list_;
  const FileEntry& entry_;
  std::uint32_t piece_ = 0;
  Offset at_ = 0;  // in the piece
};

// Why a file cannot get other bytes.
enum class FileRefusal {
  None,
  Folder,
  Deleted,
  Damaged,
  TooLong,  // longer than before
  Shared,   // other records use its bytes too
};

struct FileReplacement {
  FileRefusal refusal = FileRefusal::None;
  std::vector<Change> changes;  // as one step of ImageEdits
};

// The changes that give a file other bytes, at most as many as it has. The bytes fill the pieces in order;
// the sizes in the slots of shortened pieces change, those of unused pieces to 0.
[[nodiscard]] FileReplacement ReplaceContent(const Fullflash& image, const FileList& list,
                                             const FileEntry& entry, Bytes bytes);

}  // namespace tarvelo
