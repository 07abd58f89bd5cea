#include "document/hex_values.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "core/byte_text.h"
#include "core/text_encoding.h"
#include "document/byte_query.h"
#include "images.h"
#include "resources/messages.h"
#include "text/unicode.h"

namespace tarvelo {
namespace {

constexpr Offset at = 0x100;

// 64 KiB, the last ones of the address space: offset 0 is at FF0000.
Dump DumpWith(const Data& bytes) {
  ImageBuilder builder(0x10000);
  builder.Data(at, bytes);
  return {ImageOf(std::move(builder)), {}, {}, Names("A12345\tStart\n")};
}

std::size_t IndexOf(const Dump& dump, std::string_view name) {
  const std::vector<HexValue> values = ReadValues(dump, at, Messages());
  return static_cast<std::size_t>(std::ranges::find(values, name, &HexValue::name) - values.begin());
}

TEST(HexValues, AreReadAndWritten) {
  struct Case {
    Data bytes;
    const char* name;
    const char* text;
    const char* edited;   // what editing begins with
    const char* typed;    // instead of that
    const char* written;  // for it
  };
  const Case cases[] = {
      {{0xFE}, "uint8", "254  0xFE", "254", "0x7F", "7F"},
      {{0xFE}, "int8", "-2", "-2", "-128", "80"},
      {{0xA5}, "binary", "1010 0101", "1010 0101", "11", "03"},
      {{0xFE, 0xFF}, "int16 LE", "-2", "-2", "1000", "E8 03"},
      {{0xFE, 0xFF}, "int16 BE", "-257", "-257", "1000", "03 E8"},
      {{0x34, 0x12}, "uint16 LE", "4660  0x1234", "4660", "FFFFh", "FF FF"},
      {{0x34, 0x12}, "uint16 BE", "13330  0x3412", "13330", "1", "00 01"},
      {{0, 0, 0, 0x80}, "int32 LE", "-2147483648", "-2147483648", "-2", "FE FF FF FF"},
      {{0, 0, 0, 0x80}, "int32 BE", "128", "128", "-2", "FF FF FF FE"},
      {{0x78, 0x56, 0x34, 0x12}, "uint32 LE", "305419896  0x12345678", "305419896", "1", "01 00 00 00"},
      {{0x12, 0x34, 0x56, 0x78}, "uint32 BE", "305419896  0x12345678", "305419896", "1", "00 00 00 01"},
      {{0x34, 0x12, 0xFC, 3}, "page pointer", "3FC:1234  -> 001234", "3FC:1234", "3FD:5", "05 00 FD 03"},
      {{0x34, 0x12, 0xFC, 3}, "page pointer", "3FC:1234  -> 001234", "3FC:1234", "FF0010", "10 00 FC 03"},
      {{0x34, 0x12, 0xFC, 3}, "segment pointer", "3FC:1234", "3FC:1234", "start", "45 23 A1 00"},
      {{0x34, 0x12, 0xFF, 0}, "segment pointer", "FF:1234  -> 001234", "FF:1234", "1:2", "02 00 01 00"},
      {{0x55, 0x8F, 0x78, 0x2F},
       "DOS date",
       "2003-11-24 17:58:42",
       "2003-11-24 17:58:42",
       "1980-01-01 00:00:02",
       "01 00 21 00"},
      {{0, 0, 0, 0}, "DOS date", "", "", "2107-12-31 00:00:00", "00 00 9F FF"},
      {{0x41, 0x42, 0xDF, 0}, "Windows-1251 ... 00", "ABЯ", "ABЯ", "XY", "58 59 00"},
      {{2, 0x41, 0x42}, "n, Windows-1251", "AB", "AB", "Z", "01 5A"},
      {{2, 7, 0x41, 0, 0x42, 0}, "n, UTF-16LE", "AB", "AB", "Я", "01 07 2F 04"},
      {{4, 0, 0x41, 4, 0x2F}, "n, UTF-16BE", "AЯ", "AЯ", "B", "02 00 42"},
      {{0x41, 0, 0x42, 0}, "UTF-16LE ... FF", "AB", "AB", "B", "42 00 FF FF"},
      {{0x95, 0x41, 0x42, 0}, "Langpack ... 00", "<95>AB", "AB", "B", "95 42 00"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(std::string(c.name) + " " + c.text);
    const Dump dump = DumpWith(c.bytes);
    const std::size_t value = IndexOf(dump, c.name);
    EXPECT_EQ(ReadValues(dump, at, Messages()).at(value).text, c.text);
    EXPECT_EQ(EditableText(dump, at, value), c.edited);
    EXPECT_EQ(AsHex(ValueBytes(dump, at, value, c.typed)), c.written);
  }
}

TEST(HexValues, RefuseWhatDoesNotFit) {
  const Dump dump = DumpWith({0x41, 0x42, 0x43, 0});
  const auto write = [&](const char* name, const char* text) {
    return ValueBytes(dump, at, IndexOf(dump, name), text);
  };
  for (const auto& [name, text] : {std::pair("uint8", "256"),
                                   {"uint8", "-1"},
                                   {"int8", "128"},
                                   {"int8", "-129"},
                                   {"binary", "100000000"},
                                   {"page pointer", "10000:0"},
                                   {"Windows-1251 ... 00", "ABCD"}})
    EXPECT_THROW((void)write(name, text), std::overflow_error) << name << text;
  for (const auto& [name, text] : {std::pair("uint8", ""),
                                   {"uint8", "F"},
                                   {"int16 LE", "1x"},
                                   {"binary", "12"},
                                   {"page pointer", "x"},
                                   {"DOS date", "2003-02-30 00:00:00"},
                                   {"DOS date", "2003-02-03 00:00:01"},
                                   {"Windows-1251 ... 00", "中"},
                                   {"Windows-1251 ... 00", "яB"},
                                   {"Windows-1251, D0", "A"}})
    EXPECT_THROW((void)write(name, text), std::invalid_argument) << name << text;
  for (const char* name : {"Instruction", "Windows-1251, D0", "n, 7 bit"})
    EXPECT_EQ(EditableText(dump, at, IndexOf(dump, name)), std::nullopt) << name;
}

TEST(HexValues, EndWithTheImage) {
  ImageBuilder builder(0x10000);
  builder.Data(0x100, Data{0xDA, 0xFF, 0x10, 0});
  const Dump dump{ImageOf(std::move(builder)), {}, {}, {}};
  const auto call = ReadValues(dump, 0x100, Messages()).at(IndexOf(dump, "Instruction"));
  EXPECT_EQ(call.text, "CALLS 0FFh, 10h  -> 000010");
  EXPECT_EQ(call.target, 0x10);
  ImageBuilder odd(0x10001);  // offset 1 is at FF0000
  odd.Data(0x101, Data{0xDB, 0});
  const Dump moved{ImageOf(std::move(odd)), {}, {}, {}};
  EXPECT_EQ(ReadValues(moved, 0x100, Messages()).at(IndexOf(moved, "Instruction")).text, "");
  EXPECT_EQ(ReadValues(moved, 0x101, Messages()).at(IndexOf(moved, "Instruction")).text, "RETS");
  const std::vector<HexValue> last = ReadValues(dump, 0xFFFF, Messages());
  EXPECT_EQ(last.at(IndexOf(dump, "uint8")).text, "255  0xFF");
  EXPECT_EQ(last.at(IndexOf(dump, "uint16 LE")).text, "");
  EXPECT_EQ(EditableText(dump, 0xFFFD, IndexOf(dump, "page pointer")), std::nullopt);
}

TEST(ByteQuery, MeansBytes) {
  using enum QueryKind;
  const Dump dump = DumpWith({});
  const std::tuple<QueryKind, const char*, const char*> cases[] = {
      {Digits, "E6??4,1 ?0", "E6 ?? 41 ??"},
      {Windows1251, "Ая1", "C0 FF 31"},
      {Utf16Little, "AЯ", "41 00 2F 04"},
      {Utf16Big, "AЯ", "00 41 04 2F"},
      {Langpack, "AЯ", "95 41 9B 2F"},
      {Number8, "-1", "FF"},
      {Number8, "200", "C8"},
      {Number16Little, "1000h", "00 10"},
      {Number16Big, "4096", "10 00"},
      {Number32Little, "0x12345678", "78 56 34 12"},
      {Number32Big, "-2", "FF FF FF FE"},
      {PagePointer, "284:2345", "45 23 84 02"},
      {PagePointer, "A12345", "45 23 84 02"},
      {PagePointer, "Start", "45 23 84 02"},
      {SegmentPointer, "A12345", "45 23 A1 00"},
  };
  for (const auto& [kind, text, pattern] : cases) EXPECT_EQ(PatternOf(kind, text, dump), pattern) << text;
  for (const auto& [kind, text] : {std::pair(Digits, "DE A"),
                                   {Digits, "xx"},
                                   {Digits, ""},
                                   {Windows1251, "中"},
                                   {Windows1251, ""},
                                   {Number8, "x"},
                                   {PagePointer, "nobody"}})
    EXPECT_THROW((void)PatternOf(kind, text, dump), std::invalid_argument) << text;
  EXPECT_THROW((void)PatternOf(Number16Big, "65536", dump), std::overflow_error);
  EXPECT_EQ(PatternSize("E6 ?? 41"), 3);
  EXPECT_EQ(AsHex(Filled("?? 11 ??", Data{1, 2, 3})), "01 11 03");
}

TEST(TextEncoding, ShowsAndTypesCharacters) {
  const auto shown = [](const Data& bytes, TextEncoding encoding) {
    std::u16string text;
    for (std::size_t i = 0; i < bytes.size(); ++i)
      text += ShownCharacter(bytes, static_cast<Offset>(i), encoding);
    return ToUtf8(text);
  };
  EXPECT_EQ(shown({0x41, 0x00, 0x2F, 0x04, 0x07, 0x00, 0x41}, TextEncoding::Utf16Little), "A Я . .");
  EXPECT_EQ(shown({0x00, 0x41, 0x04, 0x2F}, TextEncoding::Utf16Big), "A Я ");
  EXPECT_EQ(shown({0x41, 0x9B, 0x2F, 0x10, 0x00, 0x2F, 0x10}, TextEncoding::Langpack), "A.ЯА./.");
  EXPECT_EQ(shown({0xAA, 0x41, 0x95, 0x41}, TextEncoding::Langpack), "...A");  // no room for an ideograph
  const auto typed = [](char16_t c, TextEncoding encoding) {
    return AsHex(TypedBytes(c, Data{0x9B, 0x00, 0x00}, 1, encoding).value_or(Data{}));
  };
  EXPECT_EQ(typed(u'Я', TextEncoding::Langpack), "2F");
  EXPECT_EQ(typed(u'A', TextEncoding::Langpack), "");  // the page there has no A
  EXPECT_EQ(typed(u'Я', TextEncoding::Utf16Big), "04 2F");
}

}  // namespace
}  // namespace tarvelo
