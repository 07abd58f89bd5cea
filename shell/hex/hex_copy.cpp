#include "shell/hex/hex_copy.h"

#include <algorithm>

#include "core/byte_text.h"
#include "document/value_bytes.h"
#include "patch/patch_lines.h"
#include "patch/pattern.h"
#include "shell/hex/hex_canvas.h"
#include "shell/services/clipboard.h"
#include "shell/services/talk.h"
#include "shell/services/workbench.h"
#include "text/unicode.h"

namespace tarvelo {
namespace {

constexpr Offset copyLimit = 0x100000;  // bytes; as text they take several times as much memory

// Characters of a column of text; the second bytes of UTF-16 units have none.
std::string TextIn(Bytes image, const Region& region, TextEncoding encoding) {
  const bool isWide = encoding == TextEncoding::Utf16Little || encoding == TextEncoding::Utf16Big;
  std::u16string text;
  for (Offset at = region.offset; at < region.End(); ++at)
    if (!isWide || at % 2 == 0) text += ShownCharacter(image, at, encoding);
  return ToUtf8(text);
}

}  // namespace

Region HexCopy::Chosen() const {
  const Region range = canvas_.Selection();
  return {range.offset, std::max<Offset>(1, range.size)};
}

void HexCopy::CopyBytes(Text command, const std::function<std::string(Bytes)>& write) const {
  const Region chosen = Chosen();
  if (chosen.size > copyLimit) return bench_.talk.ComplainOfSize(command, chosen.size, copyLimit);
  Copy(write(bench_.document.Image().Region(chosen.offset, chosen.size)));
}

void HexCopy::CopyHex() const { CopyBytes(Text::CopyAsHex, AsHex); }

void HexCopy::CopyText() const {
  const TextEncoding encoding = canvas_.Encoding();
  CopyBytes(Text::CopyAsText, [&](Bytes bytes) {
    if (encoding == TextEncoding::Windows1251) return AsText(bytes);
    return TextIn(bench_.document.Image().ff(), Chosen(), encoding);
  });
}

void HexCopy::CopyCArray() const { CopyBytes(Text::CopyAsCArray, AsCArray); }

void HexCopy::CopyPatchLines() const {
  const Region chosen = Chosen();
  CopyBytes(Text::CopyAsPatchLines, [&](Bytes now) {
    std::vector<std::uint8_t> old(now.begin(), now.end());
    const Fullflash& image = bench_.document.Image();
    for (const Change& change : bench_.document.Edits().Changes(image, chosen.offset, chosen.size))
      std::ranges::copy(change.oldBytes, old.begin() + (change.offset - chosen.offset));
    std::string lines;
    for (std::size_t i = 0; i < now.size(); i += longestPatchLine) {
      const std::size_t count = std::min<std::size_t>(longestPatchLine, now.size() - i);
      lines += PatchAddress(chosen.offset + static_cast<Offset>(i)) + ": " +
               HexOfBytes(Bytes(old).subspan(i, count)) + " " + HexOfBytes(now.subspan(i, count)) + "\n";
    }
    return lines;
  });
}

void HexCopy::CopyOffset() const { Copy(OffsetText(bench_.document.Image(), Chosen().offset)); }

void HexCopy::CopyAddress() const { Copy(AddressText(bench_.document.Image(), Chosen().offset)); }

void HexCopy::CopyPointer(ColonForm form) const {
  const Fullflash& image = bench_.document.Image();
  Copy(AsHex(PointerBytes(image.PhoneAddress(Chosen().offset), form, image)));
}

}  // namespace tarvelo
