#include "document/code_reader.h"

#include <algorithm>

#include "code/instruction_text.h"
#include "core/byte_text.h"
#include "core/notation.h"
#include "core/places.h"
#include "document/map_kinds.h"
#include "document/map_table.h"
#include "text/unicode.h"

namespace tarvelo {
namespace {

constexpr std::uint32_t dataPage = 0x4000;
constexpr std::uint32_t segmentSize = 0x10000;
constexpr std::size_t longestQuote = 60;  // characters shown of a text
constexpr std::size_t shortestQuote = 4;

CodeInk InkOf(const Operand& operand) {
  using enum Operand::Kind;
  switch (operand.kind) {
    case WordRegister:
    case ByteRegister:
    case At:
    case After:
    case Before:
    case Indexed: return CodeInk::Register;
    case Immediate:
    case Count: return CodeInk::Constant;
    case Bit:
    case BitWord: return operand.isRegister ? CodeInk::Register : CodeInk::Address;
    case Memory:
    case Special:
    case Segment:
    case Target: return CodeInk::Address;
    case None:
    case Condition: break;
  }
  return CodeInk::Plain;
}

std::vector<CodePart> PartsOf(const Instruction& instruction, std::uint32_t address, bool isExtended) {
  std::vector<CodePart> parts = {{CodeInk::Mnemonic, std::string(instruction.Mnemonic())}};
  std::string before = " ";
  for (const Operand& operand : instruction.GetOperands(address, isExtended)) {
    if (operand.kind == Operand::Kind::None) break;
    CodeText text;
    AddOperand(text, operand);
    parts.push_back({CodeInk::Plain, before});
    parts.push_back({InkOf(operand), std::string(text.View())});
    before = ", ";
  }
  return parts;
}

void AddSpaced(std::string& text, const std::string& more) {
  if (more.empty()) return;
  if (!text.empty()) text += "  ";
  text += more;
}

// Data as text; nothing for erased bytes and zeros.
std::string BesideData(Bytes bytes) {
  const auto isFilling = [](std::uint8_t byte) { return byte == 0 || byte == 0xFF; };
  if (std::ranges::all_of(bytes, isFilling)) return {};
  std::u16string text;
  for (const std::uint8_t byte : bytes) text += ShownCharacter(byte);
  return ToUtf8(text);
}

}  // namespace

std::string CodeLine::Text() const {
  std::string text;
  for (const CodePart& part : parts) text += part.text;
  return text;
}

CodeLine CodeReader::Read(Offset number) const {
  const CodeRow row = from_.rows->At(number);
  if (row.kind == CodeRow::Kind::Heading) return Heading(row);
  CodeLine line = row.kind == CodeRow::Kind::Data ? Data(row) : Code(number, row);
  const bool hasHeading = number > 0 && from_.rows->At(number - 1).kind == CodeRow::Kind::Heading;
  if (!hasHeading) AddComment(line.meaning, row.offset);
  return line;
}

void CodeReader::AddComment(std::string& text, Offset offset) const {
  const auto name = from_.dump->names.At(Image().PhoneAddress(offset));
  if (name && !name->comment.empty()) AddSpaced(text, "; " + std::string(name->comment));
}

CodeLine CodeReader::Heading(const CodeRow& row) const {
  CodeLine line;
  const std::string name(from_.dump->names.NameAt(Image().PhoneAddress(row.offset)));
  const Function* function = from_.functions->Entry(row.offset);
  if (function) {
    line.parts.push_back({CodeInk::Plain, FunctionAt(row.offset)});
    line.meaning = std::string(texts_.Msg(Text::CallsLabel)) + std::to_string(function->calls);
  } else {
    line.parts.push_back({CodeInk::Plain, name + ":"});
  }
  AddComment(line.meaning, row.offset);
  return line;
}

std::string CodeReader::FunctionAt(Offset offset) const {
  const Function* function = from_.functions->At(offset);
  if (!function) return {};
  const std::string_view name = from_.dump->names.NameAt(Image().PhoneAddress(function->code.offset));
  if (!name.empty()) return std::string(name);
  return std::string(texts_.Msg(Text::MapFunction)) + " " + SegmentText(Image(), function->code.offset);
}

CodeLine CodeReader::Data(const CodeRow& row) const {
  CodeLine line;
  std::string values;
  for (int i = 0; i < row.size; i += 2) {
    values += i == 0 ? "" : ", ";
    CodeText value;
    const bool isByte = i + 1 == row.size;
    value.AddNumber(isByte ? Image().Byte(row.offset + i) : Image().Word(row.offset + i));
    values += value.View();
  }
  line.parts = {{CodeInk::Plain, row.size == 1 ? "DB " : "DW "}, {CodeInk::Plain, values}};
  line.meaning = BesideData(Image().Region(row.offset, row.size));
  for (int i = 0; i + 4 <= row.size; i += 4) {
    const auto address = PointerAt(row.offset + i);
    if (!address) continue;
    const auto target = OffsetOf(Image(), *address);
    if (!line.target) line.target = target;
    const std::string name = from_.functions->Entry(*target) ? FunctionAt(*target) : NameOf(*address);
    AddSpaced(line.meaning, name);
  }
  return line;
}

// A pointer to a function or to a place that the user has named: offset and page, or offset and segment.
std::optional<std::uint32_t> CodeReader::PointerAt(Offset offset) const {
  const std::uint32_t low = Image().Word(offset);
  const std::uint32_t high = Image().Word(offset + 2);
  for (const std::uint32_t unit : {segmentSize, dataPage}) {
    if (high > 0xFFFFFF / unit || low >= unit) continue;
    const std::uint32_t address = high * unit + low;
    const auto target = OffsetOf(Image(), address);
    if (target && (from_.functions->Entry(*target) || !from_.dump->names.NameAt(address).empty()))
      return address;
  }
  return {};
}

CodeLine CodeReader::Code(Offset number, const CodeRow& row) const {
  const Instruction instruction = Instruction::Decode(Image().ff(), row.offset);
  if (instruction.IsData() || instruction.Size() != row.size) return Data(row);
  const std::uint32_t address = Image().PhoneAddress(row.offset);
  const ExtRange range = RangeAt(number);
  CodeLine line;
  line.parts = PartsOf(instruction, address, range.IsExtended());
  if (const auto target = instruction.Target(address)) {
    line.target = OffsetOf(Image(), *target);
    line.meaning = from_.dump->names.NameAt(*target);
    return line;
  }
  auto named = MemoryAddress(instruction, range);
  if (!named) named = PairAddress(number, instruction);
  if (!named) return line;
  line.target = OffsetOf(Image(), *named);
  if (line.target) line.meaning = SegmentText(Image(), *line.target);
  AddSpaced(line.meaning, NameOf(*named));
  return line;
}

// The next instruction in front of a row or behind it; nothing if data comes first.
std::optional<CodeReader::Step> CodeReader::Neighbour(Offset row, int direction) const {
  for (row += direction; row >= 0 && row < from_.rows->Count(); row += direction) {
    const CodeRow found = from_.rows->At(row);
    if (found.kind == CodeRow::Kind::Heading) continue;
    if (found.kind == CodeRow::Kind::Data) return {};
    const Instruction instruction = Instruction::Decode(Image().ff(), found.offset);
    if (instruction.IsData() || instruction.Size() != found.size) return {};
    return Step{row, instruction};
  }
  return {};
}

// A range covers at most 4 instructions, so those 4 in front determine it.
ExtRange CodeReader::RangeAt(Offset row) const {
  std::vector<Instruction> before;
  for (auto step = Neighbour(row, -1); step && before.size() < 4; step = Neighbour(step->row, -1))
    before.push_back(step->instruction);
  ExtRange range;
  for (auto instruction = before.rbegin(); instruction != before.rend(); ++instruction)
    range.Pass(*instruction);
  return range;
}

std::optional<std::uint32_t> CodeReader::MemoryAddress(const Instruction& instruction,
                                                       const ExtRange& range) const {
  if (!instruction.HasMemory()) return {};
  const std::uint16_t bits = instruction.Word();
  if (range.ReplacesDpp()) return range.Address(bits);
  const auto page = PageOf(from_.dpps, bits / dataPage);
  if (!page) return {};
  return *page * dataPage + bits % dataPage;
}

// The instructions around that of a row, up to a jump or call.
StraightLine CodeReader::LineAround(Offset row, const Instruction& instruction) const {
  const auto next = [&](Offset from, int direction) {
    const auto step = Neighbour(from, direction);
    return step && step->instruction.GetFlow() == Flow::Next ? step : std::nullopt;
  };
  StraightLine line;
  line.code[StraightLine::here] = instruction;
  for (auto step = next(row, -1); step && line.first > 0; step = next(step->row, -1))
    line.code[--line.first] = step->instruction;
  for (auto step = next(row, 1); step && line.end < line.code.size(); step = next(step->row, 1))
    line.code[line.end++] = step->instruction;
  return line;
}

// The address that MOV Rn, #offset and MOV Rn+1, #page or #segment near it make together.
std::optional<std::uint32_t> CodeReader::PairAddress(Offset row, const Instruction& instruction) const {
  if (!instruction.LoadsConstant()) return {};
  const StraightLine line = LineAround(row, instruction);
  const auto partner = PartnerOf(line.All(), StraightLine::here - line.first);
  if (!partner) return {};
  const std::uint32_t low = instruction.Word(), high = LoadOf(line.All()[*partner])->value;
  for (const std::uint32_t unit : {dataPage, segmentSize})
    if (low < unit && high <= 0xFFFFFF / unit && OffsetOf(Image(), high * unit + low))
      return high * unit + low;
  return {};
}

std::string CodeReader::NameOf(std::uint32_t address) const {
  if (const auto name = from_.dump->names.NameAt(address); !name.empty()) return std::string(name);
  const auto offset = OffsetOf(Image(), address);
  if (!offset || from_.functions->At(*offset)) return {};
  const auto regions = from_.map ? from_.map->Within(*offset, 1) : std::span<const Claim>();
  const ClaimGroup* group = regions.empty() ? nullptr : regions.front().kind->group;
  const bool isFound = group && group != &map::codeGroup && group != &map::unknownGroup &&
                       group != &map::textGroup && group != &map::erasedGroup && group != &map::fillingGroup;
  if (isFound) return WhatOf(regions.front(), texts_);
  return QuotedText(*offset);
}

// The text that begins at an offset, up to a byte that ends texts (GetStr), in quotes; empty if there is
// none.
std::string CodeReader::QuotedText(Offset offset) const {
  std::u16string text;
  for (; offset <= Image().ffEnd() && text.size() <= longestQuote; ++offset) {
    const std::uint8_t byte = Image().Byte(offset);
    if (byte == 0x00 || byte == 0x01 || byte == 0xFF) break;
    const char16_t character = ShownCharacter(byte);
    const bool isLineEnd = byte == '\n' || byte == '\r' || byte == '\t';
    if (character == u'.' && byte != '.' && !isLineEnd) return {};
    text += isLineEnd ? u' ' : character;
  }
  if (text.size() < shortestQuote) return {};
  if (text.size() > longestQuote) text.replace(longestQuote, 1, u"...");
  return "\"" + ToUtf8(text) + "\"";
}

}  // namespace tarvelo
