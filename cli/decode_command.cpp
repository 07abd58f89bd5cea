#include <CLI/CLI.hpp>
#include <functional>
#include <nlohmann/json.hpp>
#include <optional>
#include <ostream>

#include "cli/context.h"
#include "core/notation.h"
#include "text/decoders.h"
#include "text/langpack.h"
#include "text/unicode.h"

namespace tarvelo::cli {
namespace {

using Json = nlohmann::ordered_json;

struct DecodeArguments {
  std::string codec;
  std::string file;
  std::string offset;
  std::string width = "20";
};

// What a decoder made of the bytes. `end` is its offset or cursor afterwards.
struct Result {
  Json value;
  Offset end = 0;
  std::optional<std::string> fault;
};

using Decoder = std::function<std::u16string(Bytes, Offset&)>;

// Decoders whose offset does not move are given a copy of it.
Decoder Unmoved(std::u16string (*decoder)(Bytes, Offset)) {
  return [decoder](Bytes bytes, Offset& offset) { return decoder(bytes, offset); };
}

Decoder FindDecoder(const DecodeArguments& arguments) {
  const std::map<std::string, Decoder> decoders{
      {"GetStr", Unmoved(GetStr)},
      {"GetStrN", Unmoved(GetStrN)},
      {"GetSiem", GetSiem},
      {"GetUni", GetUni},
      {"GetUni2", GetUni2},
      {"GetPDU", GetPDU},
      {"GetUniFF", GetUniFF},
      {"MessageHard", MessageHard},
      {"GetStrA", [width = ParseDecimal("--width", arguments.width)](Bytes bytes, Offset& offset) {
         return GetStrA(bytes, offset, width);
       }}};
  return decoders.at(arguments.codec);
}

Result Decode(const DecodeArguments& arguments, Bytes bytes, Offset offset) {
  Result result;
  result.end = offset;
  try {
    if (arguments.codec == "WordA") {
      result.value["value"] = nullptr;
      result.value["value"] = WordA(bytes, offset);
    } else {
      result.value["units"] = Json::array();
      result.value["text"] = "";
      const std::u16string text = FindDecoder(arguments)(bytes, result.end);
      result.value["units"] = Json(std::vector<unsigned>(text.begin(), text.end()));
      result.value["text"] = ToUtf8(text);
    }
  } catch (const std::out_of_range& fault) {
    result.fault = fault.what();
  }
  result.value["end"] = result.end;
  result.value["fault"] = result.fault.has_value();
  return result;
}

// The bytes to decode. An address book is no image: it may be as short as one byte.
FileBytes ReadAddressBook(const std::string& file, Context& context) {
  FileBytes bytes = ReadFile(PathOf(file), Fullflash::sizeLimit, context.progress);
  if (bytes.size == 0) throw FileError(FileError::Kind::CantRead, PathOf(file), "the file is empty");
  return bytes;
}

void PrintDecoded(const DecodeArguments& arguments, Context& context) {
  if (arguments.offset.empty()) throw WrongArguments("OFFSET: a number is needed");
  const Offset offset = ParseHex("OFFSET", arguments.offset);
  Result result;
  if (arguments.codec == "WordA" || arguments.codec == "GetStrA") {
    const FileBytes book = ReadAddressBook(arguments.file, context);
    result = Decode(arguments, {book.data.get(), book.size}, offset);
  } else {
    result = Decode(arguments, OpenDump(arguments.file, context).ff(), offset);
  }
  context.out << result.value.dump() << '\n';
  if (result.fault) throw ScanFault(arguments.file, *result.fault);
}

void PrintEncoded(const std::string& text, Context& context) {
  try {
    for (const std::uint8_t byte : EncodeLangpack(ToUtf16(text))) context.out << HexOfByte(byte);
    context.out << '\n';
  } catch (const std::overflow_error& fault) {
    throw ScanFault(text, fault.what());
  }
}

}  // namespace

void AddDecode(CLI::App& app, Context& context) {
  auto arguments = std::make_shared<DecodeArguments>();
  CLI::App* command = app.add_subcommand("decode", "Decode the text at an offset");
  command->add_option("CODEC", arguments->codec, "Decoder")
      ->required()
      ->check(CLI::IsMember({"GetStr", "GetStrN", "GetSiem", "GetUni", "GetUni2", "GetPDU", "GetUniFF",
                             "MessageHard", "WordA", "GetStrA"}));
  command->add_option("FILE", arguments->file, "Dump, or address book for WordA and GetStrA")->required();
  command->add_option("OFFSET", arguments->offset, "Where the text begins (hexadecimal)")->required();
  command->add_option("--width", arguments->width, "Width of the field, for GetStrA")->capture_default_str();
  command->callback([arguments, &context] { PrintDecoded(*arguments, context); });
}

void AddEncode(CLI::App& app, Context& context) {
  auto text = std::make_shared<std::string>();
  CLI::App* command = app.add_subcommand("encode", "Print the language pack's encoding of a text");
  command->add_option("TEXT", *text, "Text")->required();
  command->callback([text, &context] { PrintEncoded(*text, context); });
}

}  // namespace tarvelo::cli
