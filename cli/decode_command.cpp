#include <algorithm>
#include <array>
#include <optional>
#include <ostream>
#include <utility>

#include "cli/files.h"
#include "cli/numbers.h"
#include "cli/output.h"
#include "cli/subcommands.h"
#include "core/notation.h"
#include "text/decoders.h"
#include "text/langpack.h"
#include "text/unicode.h"

namespace tarvelo::cli {
namespace {

// Decodes at an offset or cursor and advances it as the decoder does. `width` is that of the field.
using Decoder = std::u16string (*)(Bytes bytes, Offset& offset, int width);

template <auto decoder>
std::u16string Plain(Bytes bytes, Offset& offset, int) {
  return decoder(bytes, offset);
}

std::u16string OfWidth(Bytes bytes, Offset& offset, int width) { return GetStrA(bytes, offset, width); }

struct Codec {
  std::string_view name;
  Decoder decode;         // null for WordA, which returns a number
  bool isOfBook = false;  // reads address books, not dumps
};

constexpr std::array codecs{
    Codec{"GetStr", Plain<GetStr>},     Codec{"GetStrN", Plain<GetStrN>},
    Codec{"GetSiem", Plain<GetSiem>},   Codec{"GetUni", Plain<GetUni>},
    Codec{"GetUni2", Plain<GetUni2>},   Codec{"GetPDU", Plain<GetPDU>},
    Codec{"GetUniFF", Plain<GetUniFF>}, Codec{"MessageHard", Plain<MessageHard>},
    Codec{"WordA", nullptr, true},      Codec{"GetStrA", OfWidth, true},
};

// The result of a decoder. `end` is its offset or cursor afterwards.
struct Result {
  std::u16string text;
  std::optional<std::uint16_t> number;  // of WordA
  Offset end = 0;
  std::optional<std::string> fault;
};

Result DecodeAt(const DecodeArguments& arguments, const Codec& codec, Bytes bytes, Offset offset) {
  Result result;
  result.end = offset;
  try {
    if (codec.decode)
      result.text = codec.decode(bytes, result.end, ParseDecimal("--width", arguments.width));
    else
      result.number = WordA(bytes, offset);
  } catch (const std::out_of_range& fault) {
    result.fault = fault.what();
  }
  return result;
}

// Reads an address book to decode. Unlike an image, it may be as short as one byte.
FileBytes ReadAddressBook(const std::string& file, Context& context) {
  FileBytes bytes = ReadFile(PathOf(file), Fullflash::sizeLimit, context.progress);
  if (bytes.size == 0) throw FileError(FileError::Kind::CantRead, PathOf(file), "the file is empty");
  return bytes;
}

// --- printing; a text may be as long as the image and is never copied whole ---

// Calls take(piece) for pieces of a text that keep surrogate pairs together.
template <typename Take>
void EachPiece(std::u16string_view text, Take take) {
  constexpr std::size_t longest = 0x1000;
  while (!text.empty()) {
    std::size_t length = std::min(longest, text.size());
    const bool isPairCut = length < text.size() && text[length - 1] >= 0xD800 && text[length - 1] < 0xDC00;
    if (isPairCut) --length;
    take(text.substr(0, length));
    text.remove_prefix(length);
  }
}

void PrintUnits(std::u16string_view text, Context& context) {
  bool isFirst = true;
  EachPiece(text, [&](std::u16string_view piece) {
    std::string numbers;
    for (const char16_t unit : piece) {
      if (!std::exchange(isFirst, false)) numbers += ',';
      numbers += std::to_string(+unit);
    }
    PrintPiece(numbers, context);
  });
}

void PrintText(std::u16string_view text, Context& context) {
  EachPiece(text, [&](std::u16string_view piece) {
    const std::string quoted = Json(ToUtf8(piece)).dump();
    PrintPiece(std::string_view(quoted).substr(1, quoted.size() - 2), context);
  });
}

void PrintResult(const Result& result, bool isText, Context& context) {
  if (isText) {
    PrintPiece("{\"units\":[", context);
    PrintUnits(result.text, context);
    PrintPiece("],\"text\":\"", context);
    PrintText(result.text, context);
    PrintPiece("\"", context);
  } else {
    PrintPiece("{\"value\":" + (result.number ? std::to_string(*result.number) : "null"), context);
  }
  PrintPiece(",\"end\":" + std::to_string(result.end), context);
  PrintPiece(result.fault ? ",\"fault\":true}\n" : ",\"fault\":false}\n", context);
}

// --- files ---

Result DecodeFile(const DecodeArguments& arguments, const Codec& codec, Context& context) {
  const Offset offset = ParseHex("OFFSET", arguments.offset);
  if (!codec.isOfBook)
    return DecodeAt(arguments, codec, ReadImage(arguments.file, context.progress).ff(), offset);
  const FileBytes book = ReadAddressBook(arguments.file, context);
  return DecodeAt(arguments, codec, {book.data.get(), book.size}, offset);
}

}  // namespace

std::vector<std::string> Codecs() {
  std::vector<std::string> names;
  for (const Codec& codec : codecs) names.emplace_back(codec.name);
  return names;
}

void Decode(const DecodeArguments& arguments, Context& context) {
  if (arguments.offset.empty()) throw WrongArguments("OFFSET: a number is needed");
  const Codec& codec = *std::ranges::find(codecs, arguments.codec, &Codec::name);
  const Result result = DecodeFile(arguments, codec, context);
  PrintResult(result, codec.decode != nullptr, context);
  if (result.fault) throw ScanFault(arguments.file, *result.fault);
}

void Encode(const EncodeArguments& arguments, Context& context) {
  try {
    for (const std::uint8_t byte : EncodeLangpack(ToUtf16(arguments.text))) context.out << HexOfByte(byte);
    context.out << '\n';
  } catch (const std::overflow_error& fault) {
    throw ScanFault(arguments.text, fault.what());
  }
}

}  // namespace tarvelo::cli
