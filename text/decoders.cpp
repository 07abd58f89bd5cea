#include "text/decoders.h"

#include <algorithm>

#include "text/langpack.h"
#include "text/unicode.h"

namespace tarvelo {

std::u16string GetStr(Bytes bytes, Offset offset) try {
  std::u16string text;
  for (Offset p = offset;; ++p) {
    const std::uint8_t b = ByteAt(bytes, p);
    if (b < 0x02 || b == 0xFF) return text;
    text += FromWindows1251(b);
  }
} catch (const std::out_of_range&) {
  return {};
}

std::u16string GetStrN(Bytes bytes, Offset offset) {
  std::u16string text;
  const int length = ByteAt(bytes, offset);
  if (length == 0xFF) return text;
  for (int i = 1; i <= length; ++i) text += FromWindows1251(ByteAt(bytes, offset + i));
  return text;
}

std::u16string GetSiem(Bytes bytes, Offset& offset) try {
  std::u16string text;
  int shift = 0;
  for (;; ++offset) {
    const int b = ByteAt(bytes, offset);
    if (b == 0x00 || b == 0xFF) return text;
    if (b == 0xD0) {
      shift = 0x30;
      continue;
    }
    if (b + shift > 0xFF) return {};
    text += FromWindows1251(static_cast<std::uint8_t>(b + shift));
    shift = 0;
  }
} catch (const std::out_of_range&) {
  return {};
}

std::u16string GetUni(Bytes bytes, Offset& cursor) {
  std::u16string text;
  const int length = ByteAt(bytes, cursor);
  if (length == 0xFF) return text;
  for (int i = 0; i < length; ++i) {
    cursor += 2;
    text += static_cast<char16_t>(WordAt(bytes, cursor));
  }
  return text;
}

std::u16string GetUni2(Bytes bytes, Offset& offset) {
  std::u16string text;
  try {
    const int length = ByteAt(bytes, offset);
    const int half = length / 2;
    const int count = length % 2 == 0 ? half : half + half % 2;
    offset -= 1;
    for (int i = 0; i < count; ++i) {
      offset += 2;
      const int high = ByteAt(bytes, offset);
      if (high >= 0x80) break;
      text += static_cast<char16_t>(high << 8 | ByteAt(bytes, offset + 1));
    }
  } catch (const std::out_of_range&) {
    // The text ends where the image does.
  }
  return text;
}

std::u16string GetPDU(Bytes bytes, Offset& offset) {
  std::u16string text;
  const std::size_t count = ByteAt(bytes, offset);
  int multiplier = 1;
  int carry = 0;
  for (std::size_t i = 1; i <= count; ++i) {
    offset += 1;
    const int value = carry + ByteAt(bytes, offset) * multiplier;
    text += static_cast<char16_t>(value & 0x7F);
    multiplier *= 2;
    carry = value / 128;
    if (multiplier == 256) {  // a whole septet waits in the carry
      multiplier = 2;
      text += static_cast<char16_t>(carry & 0x7F);
      carry /= 128;
      ++i;
    }
  }
  text.resize(std::min(count, text.size()));
  return text;
}

std::u16string GetUniFF(Bytes bytes, Offset& cursor) {
  std::u16string text;
  while (ByteAt(bytes, cursor + 1) < 0xFF) {
    text += static_cast<char16_t>(WordAt(bytes, cursor));
    cursor += 2;
  }
  return text;
}

std::u16string MessageHard(Bytes bytes, Offset& offset) {
  const Offset start = offset;
  while (ByteAt(bytes, offset) != 0x00) ++offset;
  return DecodeLangpack(
      bytes.subspan(static_cast<std::size_t>(start), static_cast<std::size_t>(offset - start)));
}

std::uint16_t WordA(Bytes book, Offset offset) { return WordAt(book, offset); }

std::u16string GetStrA(Bytes book, Offset offset, int width) {
  std::u16string text;
  for (int i = 0; i < width; ++i) {
    const std::uint8_t b = ByteAt(book, offset + i);
    if (b == 0x00) break;
    text += FromWindows1251(b);
  }
  return text;
}

}  // namespace tarvelo
