// What an entry's header says, as text.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "core/fullflash.h"
#include "files/file_list.h"

namespace tarvelo {

// The name of an entry in UTF-8, without its folder: of a root, the volume's. A name that begins with 0x1F is
// UTF-8 behind that byte, any other Windows-1251. An entry without a name gets its number: "#78".
[[nodiscard]] std::string NameOf(const Fullflash& image, const FileList& list, const FileEntry& entry);

// The path of an entry, volume first: "FFS/Pictures/big.bmp"; that of a folder ends in "/". Names are as they
// stand, whatever characters they have.
[[nodiscard]] std::string PathOf(const Fullflash& image, const FileList& list, const FileEntry& entry);

// At least the length of each entry's path in bytes, by index.
[[nodiscard]] std::vector<std::uint32_t> PathLengths(const Fullflash& image, const FileList& list);

// "2003-11-24 17:58:42", the entry's time; empty if it is none or impossible.
[[nodiscard]] std::string DateOf(const Fullflash& image, const FileList& list, const FileEntry& entry);
[[nodiscard]] std::string DateText(std::uint32_t time);

// The letters of the attributes that are set, of "RHSD": read-only, hidden, system, directory.
[[nodiscard]] std::string AttributesOf(const Fullflash& image, const FileList& list, const FileEntry& entry);

// The entries that each folder holds.
class FolderContents {
 public:
  explicit FolderContents(const FileList& list);

  // The indices of the entries in a folder, or, for noIndex, of those in none; in the list's order.
  [[nodiscard]] std::span<const std::uint32_t> In(std::uint32_t folder) const;

 private:
  std::vector<std::uint32_t> starts_;  // by folder, the last one for noIndex; indices in members_
  std::vector<std::uint32_t> members_;
};

}  // namespace tarvelo
