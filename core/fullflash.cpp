#include "core/fullflash.h"

#include <algorithm>

#include "core/notation.h"

namespace tarvelo {
namespace {

constexpr auto largeBase = static_cast<std::int32_t>(0xA0000000);

FileBytes Copy(Bytes bytes) {
  FileBytes copy(bytes.size());
  std::ranges::copy(bytes, copy.data.get());
  return copy;
}

}  // namespace

Fullflash::Fullflash(FileBytes bytes) : bytes_(std::move(bytes)) {
  // A page-mode dump ends at the top of the 16 MiB address space.
  loadBase_ = PageMode() ? 0x1000000 - static_cast<std::int32_t>(bytes_.size) : largeBase;
  corrBase_ = loadBase_;
}

Fullflash::Fullflash(Bytes bytes) : Fullflash(Copy(bytes)) {}

Fullflash Fullflash::Load(const std::filesystem::path& path, Progress& progress) {
  FileBytes bytes = ReadFile(path, sizeLimit, progress);
  return bytes.size < 2 ? Fullflash() : Fullflash(std::move(bytes));
}

Bytes Fullflash::Region(Offset a, Offset size) const {
  const auto length = static_cast<Offset>(bytes_.size);
  if (a < 0 || size < 0 || a > length || size > length - a) ThrowPastEnd(a);
  return ff().subspan(static_cast<std::size_t>(a), static_cast<std::size_t>(size));
}

void Fullflash::Write(Offset a, Bytes bytes) {
  (void)Region(a, std::ssize(bytes));
  std::ranges::copy(bytes, bytes_.data.get() + a);
}

std::string Fullflash::ByteHex(Offset a) const { return HexOfByte(Byte(a)); }

std::string Fullflash::ByteDec(Offset a) const { return DecOfByte(Byte(a)); }

}  // namespace tarvelo
