#include "code/instruction_text.h"
#include "code/references.h"

namespace tarvelo {
namespace {

std::string TextAt(const Fullflash& image, Offset at, bool isExtended) {
  return std::string(TextOf(Instruction::Decode(image.ff(), at), image.PhoneAddress(at), isExtended).View());
}

std::string PointerText(const Fullflash& image, Offset at) {
  CodeText text;
  text.Add("DW ");
  text.AddNumber(image.Word(at));
  text.Add(", ");
  text.AddNumber(image.Word(at + 2));
  return std::string(text.View());
}

}  // namespace

std::string_view NameOf(ReferenceKind kind) {
  static constexpr std::string_view names[] = {"call", "jump", "access", "pair", "pointer", "data"};
  return names[static_cast<std::size_t>(kind)];
}

std::string_view NameOf(ReferenceSureness sure) {
  static constexpr std::string_view names[] = {"certain", "likely", "possible"};
  return names[static_cast<std::size_t>(sure)];
}

std::string TextOf(const Reference& reference, const Fullflash& image) {
  const Offset at = reference.offset;
  if (reference.kind == ReferenceKind::Pointer) return PointerText(image, at);
  if (reference.kind == ReferenceKind::Pair)
    return TextAt(image, at, false) + "; " + TextAt(image, at + reference.distance, false);
  const bool isExtended = reference.distance != 0 && (image.Byte(at - reference.distance + 1) & 0x80) != 0;
  const bool isUnknown =
      reference.kind == ReferenceKind::Data && reference.sure == ReferenceSureness::Possible;
  return TextAt(image, at, isExtended) +
         (isUnknown ? " (DPP" + std::to_string(reference.dpp) + ")" : std::string());
}

}  // namespace tarvelo
