// The fullflash: the whole dump of a phone's flash memory as one array of bytes, and the two bases that
// relate phone addresses to positions in it.
//
// All numbers are little-endian. Offsets are indices into the image; 0 is the first byte of the file. A phone
// address is an offset plus CorrBase().
//
// Firmware stores pointers in 4 bytes, in one of two forms:
//   page pointer    (images of up to 16 MiB)  offset word, page word; address = page * 0x4000 + offset
//   linear pointer  (larger images)           double word; its low 25 bits count, from CorrBase() on
#pragma once

#include <cstdint>
#include <filesystem>

#include "core/file.h"
#include "text/bytes.h"

namespace tarvelo {

class Fullflash {
 public:
  // Longer files are large images: they use linear pointers and load at 0xA0000000.
  static constexpr std::int32_t BigLimit = 0x1000000;
  // The longest image: its last index still fits a signed 32-bit number.
  static constexpr std::uint64_t sizeLimit = std::uint64_t{1} << 31;

  // No image.
  Fullflash() = default;
  // An image of these bytes. The size determines LoadBase(); CorrBase() starts equal to it.
  explicit Fullflash(FileBytes bytes);
  explicit Fullflash(Bytes bytes);  // copies them

  // Reads a whole dump. Throws FileError (the limit is sizeLimit) and std::bad_alloc. A file of less than two
  // bytes gives no image.
  [[nodiscard]] static Fullflash Load(const std::filesystem::path& path, Progress& progress);

  // Whether there is an image. One byte does not count as one.
  [[nodiscard]] bool IsOpen() const { return ffEnd() != 0; }

  [[nodiscard]] Bytes ff() const { return {bytes_.data.get(), bytes_.size}; }
  // The last valid offset; 0 without an image.
  [[nodiscard]] std::int32_t ffEnd() const {
    return bytes_.size == 0 ? 0 : static_cast<std::int32_t>(bytes_.size - 1);
  }

  // The phone address of offset 0. Negative for large images (0xA0000000 as a signed number).
  [[nodiscard]] std::int32_t LoadBase() const { return loadBase_; }
  // The base of all conversions: LoadBase(), except for a few models (identification.h).
  [[nodiscard]] std::int32_t CorrBase() const { return corrBase_; }
  void SetCorrBase(std::int32_t base) { corrBase_ = base; }
  // The phone address of an offset, unsigned.
  [[nodiscard]] std::uint32_t PhoneAddress(Offset a) const {
    return static_cast<std::uint32_t>(a + corrBase_);
  }

  // Words and code lie at even phone addresses: at odd offsets if the base is odd, as in an image of odd
  // size.
  [[nodiscard]] bool BeginsWord(Offset a) const { return PhoneAddress(a) % 2 == 0; }
  // The start of the word that has the byte at an offset; -1 if that word begins in front of the image.
  [[nodiscard]] Offset WordStart(Offset a) const { return BeginsWord(a) ? a : a - 1; }
  // The first offset at which a word begins, 0 or 1.
  [[nodiscard]] Offset FirstWord() const { return BeginsWord(0) ? 0 : 1; }

  // C166 phones: images of at most 16 MiB, with page pointers.
  [[nodiscard]] bool PageMode() const { return ffEnd() < BigLimit; }
  [[nodiscard]] int PtrUnit() const { return PageMode() ? 1 : 2; }
  [[nodiscard]] int PtrUnit2() const { return 2 * PtrUnit(); }
  // The number of hexadecimal digits in a 64 KiB block number, and in an offset.
  [[nodiscard]] int BlkDigits() const { return PtrUnit() + 1; }
  [[nodiscard]] int OffDigits() const { return PtrUnit() + 5; }

  // The byte, the 16-bit word and the 32-bit double word at an offset. All throw std::out_of_range outside
  // the image. DWord throws std::overflow_error from 0x80000000 up; read pointers with GetAdr instead.
  [[nodiscard]] std::uint8_t Byte(Offset a) const { return ByteAt(ff(), a); }
  [[nodiscard]] std::uint16_t Word(Offset a) const { return WordAt(ff(), a); }
  [[nodiscard]] std::int32_t DWord(Offset a) const;

  // The phone address in the pointer at an offset. The whole offset word of a page pointer is added, even
  // above 0x3FFF. Throws std::out_of_range.
  [[nodiscard]] std::int32_t GetAdr(Offset a) const;

  // The bytes of a region. Throws std::out_of_range unless all of it is in the image.
  [[nodiscard]] Bytes Region(Offset a, Offset size) const;
  // Overwrites the bytes at an offset. Throws std::out_of_range, and writes nothing, unless all of them are
  // in the image. Editors write through ImageEdits instead.
  void Write(Offset a, Bytes bytes);

  // The byte at an offset as two hexadecimal digits, or as the last two digits of its decimal value.
  [[nodiscard]] std::string ByteHex(Offset a) const;
  [[nodiscard]] std::string ByteDec(Offset a) const;

 private:
  FileBytes bytes_;
  std::int32_t loadBase_ = 0;
  std::int32_t corrBase_ = 0;
};

inline std::int32_t Fullflash::DWord(Offset a) const {
  const std::uint32_t value = DWordAt(ff(), a);
  if (value >= 0x80000000) throw std::overflow_error("double word too large at offset " + std::to_string(a));
  return static_cast<std::int32_t>(value);
}

inline std::int32_t Fullflash::GetAdr(Offset a) const {
  if (PageMode()) return Word(a) + Word(a + 2) * 0x4000;
  return Word(a) + ((Byte(a + 3) & 1) * 256 + Byte(a + 2)) * 0x10000 + CorrBase();
}

}  // namespace tarvelo
