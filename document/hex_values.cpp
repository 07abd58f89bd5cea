#include "document/hex_values.h"

#include <algorithm>
#include <bitset>
#include <span>
#include <stdexcept>

#include "code/instruction_text.h"
#include "core/byte_writer.h"
#include "core/notation.h"
#include "core/places.h"
#include "core/trimmed.h"
#include "document/text_values.h"
#include "document/value_bytes.h"
#include "files/file_text.h"
#include "resources/messages.h"
#include "resources/texts.h"

namespace tarvelo {
namespace {

// How one meaning is read and written.
struct Meaning {
  std::string_view term;  // the name, if it is the same in all languages
  Text name{};
  int bytes = 1;
  std::string (*read)(const Dump& dump, Offset at) = nullptr;
  // Null: it cannot be written.
  std::vector<std::uint8_t> (*write)(std::string_view text, const Dump& dump) = nullptr;
  std::optional<Offset> (*target)(const Fullflash& image, Offset at) = nullptr;
};

template <int bits, ByteOrder order>
std::uint32_t Number(const Dump& dump, Offset at) {
  std::uint32_t value = 0;
  for (int i = 0; i < bits; i += 8)
    value |= std::uint32_t{dump.image.Byte(at + i / 8)} << (order == ByteOrder::Little ? i : bits - 8 - i);
  return value;
}

template <int bits, ByteOrder order>
std::string ReadUnsigned(const Dump& dump, Offset at) {
  const std::uint32_t value = Number<bits, order>(dump, at);
  return std::to_string(value) + "  0x" + WholeHex(value, bits / 4);
}

template <int bits, ByteOrder order>
std::string ReadSigned(const Dump& dump, Offset at) {
  const std::int64_t value = Number<bits, order>(dump, at);
  return std::to_string(value >> (bits - 1) != 0 ? value - (std::int64_t{1} << bits) : value);
}

template <int bits, ByteOrder order, Sign sign>
std::vector<std::uint8_t> WriteNumber(std::string_view text, const Dump&) {
  return NumberBytes(text, bits, order, sign);
}

std::string ReadBinary(const Dump& dump, Offset at) {
  std::string bits = std::bitset<8>(dump.image.Byte(at)).to_string();
  return bits.insert(4, " ");
}

std::vector<std::uint8_t> WriteBinary(std::string_view text, const Dump&) {
  std::string bits(text);
  std::erase(bits, ' ');
  if (bits.empty() || bits.find_first_not_of("01") != bits.npos) throw std::invalid_argument(bits);
  if (bits.size() > 8) throw std::overflow_error(bits);
  return {static_cast<std::uint8_t>(std::bitset<8>(bits).to_ulong())};
}

std::string ReadPagePointer(const Dump& dump, Offset at) {
  const Fullflash& image = dump.image;
  if (!image.PageMode()) return WholeHex(static_cast<std::uint32_t>(image.GetAdr(at)), 8);
  return WholeHex(image.Word(at + 2), 3) + ":" + WholeHex(image.Word(at), 4);
}

std::string ReadSegmentPointer(const Dump& dump, Offset at) {
  if (!dump.image.PageMode()) return {};
  return WholeHex(dump.image.Word(at + 2), 2) + ":" + WholeHex(dump.image.Word(at), 4);
}

// Erased and zero double words are not pointers.
bool CanBePointer(const Fullflash& image, Offset at) {
  const std::uint32_t dword = DWordAt(image.ff(), at);
  return dword != 0 && dword != 0xFFFFFFFF;
}

std::optional<Offset> PageTarget(const Fullflash& image, Offset at) {
  if (!CanBePointer(image, at)) return {};
  return OffsetOf(image, static_cast<std::uint32_t>(image.GetAdr(at)));
}

std::optional<Offset> SegmentTarget(const Fullflash& image, Offset at) {
  if (!image.PageMode() || !CanBePointer(image, at)) return {};
  return OffsetOf(image, DWordAt(image.ff(), at));
}

template <ColonForm form>
std::vector<std::uint8_t> WritePointer(std::string_view text, const Dump& dump) {
  return PointerBytes(text, form, dump);
}

// Code lies at even phone addresses.
bool CanBeCode(const Fullflash& image, Offset at) {
  return image.PageMode() && image.PhoneAddress(at) % 2 == 0;
}

std::string ReadInstruction(const Dump& dump, Offset at) {
  const Fullflash& image = dump.image;
  if (!CanBeCode(image, at)) return {};
  return std::string(TextOf(Instruction::Decode(image.ff(), at), image.PhoneAddress(at), false).View());
}

std::optional<Offset> JumpTarget(const Fullflash& image, Offset at) {
  if (!CanBeCode(image, at)) return {};
  const Instruction instruction = Instruction::Decode(image.ff(), at);
  if (instruction.IsData()) return {};
  const auto address = instruction.Target(image.PhoneAddress(at));
  return address ? OffsetOf(image, *address) : std::nullopt;
}

std::string ReadDate(const Dump& dump, Offset at) { return DateText(DWordAt(dump.image.ff(), at)); }

std::vector<std::uint8_t> WriteDate(std::string_view text, const Dump&) {
  ByteBuffer bytes;
  AppendDWord(bytes, DosDateOf(text));
  return bytes;
}

template <int bits, ByteOrder order>
constexpr Meaning UnsignedOf(std::string_view term) {
  return {term, {}, bits / 8, ReadUnsigned<bits, order>, WriteNumber<bits, order, Sign::Unsigned>};
}

template <int bits, ByteOrder order>
constexpr Meaning SignedOf(std::string_view term) {
  return {term, {}, bits / 8, ReadSigned<bits, order>, WriteNumber<bits, order, Sign::Signed>};
}

// The texts follow these.
constexpr Meaning meanings[] = {
    UnsignedOf<8, ByteOrder::Little>("uint8"),
    SignedOf<8, ByteOrder::Little>("int8"),
    {"", Text::ValueBinary, 1, ReadBinary, WriteBinary},
    UnsignedOf<16, ByteOrder::Little>("uint16 LE"),
    SignedOf<16, ByteOrder::Little>("int16 LE"),
    UnsignedOf<16, ByteOrder::Big>("uint16 BE"),
    SignedOf<16, ByteOrder::Big>("int16 BE"),
    UnsignedOf<32, ByteOrder::Little>("uint32 LE"),
    SignedOf<32, ByteOrder::Little>("int32 LE"),
    UnsignedOf<32, ByteOrder::Big>("uint32 BE"),
    SignedOf<32, ByteOrder::Big>("int32 BE"),
    {"", Text::ValuePagePointer, 4, ReadPagePointer, WritePointer<ColonForm::Page>, PageTarget},
    {"", Text::ValueSegmentPointer, 4, ReadSegmentPointer, WritePointer<ColonForm::Segment>, SegmentTarget},
    {"", Text::ColumnInstruction, 1, ReadInstruction, nullptr, JumpTarget},
    {"", Text::ValueDosDate, 4, ReadDate, WriteDate},
};

bool HasBytes(const Meaning& meaning, const Fullflash& image, Offset at) {
  return at + meaning.bytes <= std::ssize(image.ff());
}

}  // namespace

std::vector<HexValue> ReadValues(const Dump& dump, Offset at, const Messages& messages) {
  std::vector<HexValue> values;
  for (const Meaning& meaning : meanings) {
    HexValue value{std::string(meaning.term.empty() ? messages.Msg(meaning.name) : meaning.term), {}, {}};
    if (HasBytes(meaning, dump.image, at)) {
      value.text = meaning.read(dump, at);
      if (meaning.target) value.target = meaning.target(dump.image, at);
    }
    if (value.target) value.text += "  -> " + OffsetText(dump.image, *value.target);
    values.push_back(std::move(value));
  }
  for (TextValue& text : ReadTextValues(dump.image.ff(), at))
    values.push_back({std::string(text.encoding), std::move(text.text), {}});
  return values;
}

std::optional<std::string> EditableText(const Dump& dump, Offset at, std::size_t value) {
  if (value >= std::size(meanings))
    return EditableTextValue(dump.image.ff(), at, value - std::size(meanings));
  const Meaning& meaning = meanings[value];
  if (!meaning.write || !HasBytes(meaning, dump.image, at)) return {};
  std::string text = meaning.read(dump, at);
  text.resize(std::min(text.size(), text.find("  ")));
  const bool isImpossible = text.empty() && meaning.write != WriteDate;
  return isImpossible ? std::nullopt : std::optional(text);
}

std::vector<std::uint8_t> ValueBytes(const Dump& dump, Offset at, std::size_t value, std::string_view text) {
  if (value >= std::size(meanings))
    return TextValueBytes(dump.image.ff(), at, value - std::size(meanings), text);
  if (!meanings[value].write) throw std::invalid_argument(std::string(text));
  return meanings[value].write(text, dump);
}

}  // namespace tarvelo
