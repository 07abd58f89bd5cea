#include <algorithm>
#include <array>
#include <optional>
#include <ostream>

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
  Json value;
  Offset end = 0;
  std::optional<std::string> fault;
};

void DecodeText(const DecodeArguments& arguments, Decoder decode, Bytes bytes, Result& result) {
  result.value["units"] = Json::array();
  result.value["text"] = "";
  const std::u16string text = decode(bytes, result.end, ParseDecimal("--width", arguments.width));
  result.value["units"] = Json(std::vector<unsigned>(text.begin(), text.end()));
  result.value["text"] = ToUtf8(text);
}

Result DecodeAt(const DecodeArguments& arguments, const Codec& codec, Bytes bytes, Offset offset) {
  Result result;
  result.end = offset;
  try {
    if (codec.decode) {
      DecodeText(arguments, codec.decode, bytes, result);
    } else {
      result.value["value"] = nullptr;
      result.value["value"] = WordA(bytes, offset);
    }
  } catch (const std::out_of_range& fault) {
    result.fault = fault.what();
  }
  result.value["end"] = result.end;
  result.value["fault"] = result.fault.has_value();
  return result;
}

// Reads an address book to decode. Unlike an image, it may be as short as one byte.
FileBytes ReadAddressBook(const std::string& file, Context& context) {
  FileBytes bytes = ReadFile(PathOf(file), Fullflash::sizeLimit, context.progress);
  if (bytes.size == 0) throw FileError(FileError::Kind::CantRead, PathOf(file), "the file is empty");
  return bytes;
}

Result DecodeFile(const DecodeArguments& arguments, Context& context) {
  const Offset offset = ParseHex("OFFSET", arguments.offset);
  const Codec& codec = *std::ranges::find(codecs, arguments.codec, &Codec::name);
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
  const Result result = DecodeFile(arguments, context);
  context.out << JsonLine(result.value);
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
