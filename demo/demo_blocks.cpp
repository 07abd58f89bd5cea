#include "demo/demo_blocks.h"

#include <stdexcept>
#include <string>
#include <string_view>

#include "demo/demo_encoders.h"
#include "demo/demo_random.h"

namespace tarvelo {
namespace {

using Data = ByteBuffer;

struct Range {
  int first;
  int last;
};

constexpr Range numberRanges[] = {{1, 1},       {3, 40},      {51, 71},     {100, 108},   {250, 284},
                                  {999, 999},   {5001, 5040}, {5070, 5079}, {5098, 5107}, {5120, 5139},
                                  {5160, 5180}, {5206, 5209}, {5237, 5241}, {5262, 5262}, {5270, 5280},
                                  {5301, 5301}, {5360, 5372}};

constexpr int greeting = 5076;
constexpr int names = 5124;
constexpr int accu = 67;
constexpr int drafts = 5206;
constexpr int shortcuts = 5209;
constexpr int addressBook = 5301;
// The largest block and the highest layout version that a header can state.
constexpr std::size_t addressBookSize = 0x14FF;
constexpr std::uint8_t addressBookVersion = 0x21;

bool Within(int number, int first, int last) { return number >= first && number <= last; }

// Appends a text in a field of `size` bytes; unused bytes are erased.
void Field(Data& data, const TextBytes& text, std::size_t size) {
  if (text.size() > size) throw std::length_error("a block's text is longer than its field");
  AppendBytes(data, text);
  data.insert(data.end(), size - text.size(), 0xFF);
}

void Words(Data& data, unsigned first, unsigned step, int count) {
  for (int i = 0; i < count; ++i, first += step) AppendWord(data, first);
}

Data Greeting(int generation) {
  constexpr std::u16string_view texts[] = {u"Hello!", u"Good morning", u"Tarvelo demo"};
  Data data;
  Field(data, UnicodeText(texts[generation]), 66);
  return data;
}

Data Names(int generation) {
  Data data;
  Field(data, UnicodeText(generation == 0 ? u"Demo" : u"Demo network"), 34);
  Field(data, UnicodeText(u"Сеть"), 34);
  Field(data, UnicodeText(u"Δίκτυο"), 34);
  return data;
}

Data Address(int number, int generation) {
  std::u16string text = u"http://wap.example.net/";
  text += static_cast<char16_t>(u'0' + number % 10);
  if (generation > 0) text += generation == 1 ? u"/index.wml" : u"/start.wml";
  Data data;
  Field(data, PlainText(text), 48);
  return data;
}

Data QuickText(int number) {
  constexpr std::u16string_view texts[] = {u"I am late.",        u"Please call me back.", u"Happy birthday!",
                                           u"See you tomorrow.", u"Wo bist du?",          u"Ich bin im Büro.",
                                           u"Спасибо!",          u"Я в метро.",           u"Είμαι στο σπίτι.",
                                           u"Καλημέρα"};
  Data data;
  Field(data, OpenUnicodeText(texts[number % 10]), 64);
  return data;
}

Data Drafts(int generation) {
  Data data;
  Field(data, BigEndianText(generation == 0 ? u"Вечером дома" : u"Вечером буду дома"), 48);
  Field(data, PackedText(u"Meeting at 10, room 5"), 24);
  return data;
}

Data Shortcuts() {
  Data data;
  for (const std::u16string_view text : {u"Alarm", u"Games", u"Новое сообщение", u"Calendar"})
    Field(data, CountedText(text), 20);
  return data;
}

Data CyrillicNote(int number) {
  Data data;
  Field(data, CyrillicText(number == 5168 ? u"Включите телефон" : u"Добро пожаловать!"), 40);
  return data;
}

// Millivolts for each tenth of charge, then two temperatures in kelvin.
Data Accu(int generation) {
  Data data;
  Words(data, 3300 + 4 * static_cast<unsigned>(generation), 88, 11);
  Words(data, 263, 55, 2);
  return data;
}

Data AddressBook(int generation) {
  constexpr std::u16string_view people[] = {u"Anna",      u"Boris", u"Clara", u"Dmitri", u"Eleni",
                                            u"Friedrich", u"Greta", u"Hugo",  u"Irina",  u"Johann"};
  Random random(static_cast<std::uint32_t>(addressBook + generation));
  Data data;
  while (data.size() < addressBookSize) {
    std::u16string digits = u"+0";
    for (int i = 0; i < 9; ++i) digits += static_cast<char16_t>(u'0' + random.Below(10));
    Field(data, PlainText(people[random.Below(10)]), 16);
    Field(data, CountedText(digits), 16);
  }
  data.resize(addressBookSize);
  return data;
}

// Blocks with a meaning that only the phone knows: rising calibration values, counters, switches.
Data Table(int number, int generation) {
  Random random(static_cast<std::uint32_t>(number));
  const auto later = static_cast<std::uint8_t>(generation);
  Data data;
  switch (number % 4) {
    case 0: {
      const unsigned first = 0x100 + random.Below(0x400) + later;
      const unsigned step = 1 + random.Below(40);
      Words(data, first, step, 8 + number % 24);
      break;
    }
    case 1:
      for (int i = 0; i < 3 + number % 6; ++i) {
        Words(data, random.Below(0x8000) + later, 0, 1);
        Words(data, 0, 0, 1);
      }
      break;
    case 2:
      for (int i = 0; i < 6 + number % 40; ++i)
        data.push_back(static_cast<std::uint8_t>(random.Below(4) == 0 ? 1 : 0));
      data.push_back(later);
      break;
    default:
      data.push_back(later);
      for (int i = 0; i < 15 + number % 64; ++i)
        data.push_back(static_cast<std::uint8_t>(0x20 + random.Below(0x60)));
      break;
  }
  return data;
}

Data DataOf(int number, int generation) {
  if (Within(number, 5098, 5107)) return Address(number, generation);
  if (Within(number, 5170, 5179)) return QuickText(number);
  switch (number) {
    case greeting: return Greeting(generation);
    case names: return Names(generation);
    case accu: return Accu(generation);
    case drafts: return Drafts(generation);
    case shortcuts: return Shortcuts();
    case addressBook: return AddressBook(generation);
    case 5168:
    case 5262: return CyrillicNote(number);
    default: return Table(number, generation);
  }
}

// Blocks with the same data in every generation. They are written only once.
bool IsConstant(int number) {
  return Within(number, 5170, 5179) || number == shortcuts || number == 5168 || number == 5262;
}

}  // namespace

std::vector<int> BlockNumbers() {
  std::vector<int> numbers;
  for (const Range range : numberRanges)
    for (int number = range.first; number <= range.last; ++number) numbers.push_back(number);
  return numbers;
}

int Generations(int number) {
  if (IsConstant(number)) return 1;
  if (number == greeting) return 3;
  if (number == names || number == drafts || number % 10 == 7) return 2;
  return number % 5 == 0 ? 3 : 1;
}

BlockContent ContentOf(int number, int generation) {
  const auto v = number == addressBook ? addressBookVersion : static_cast<std::uint8_t>(number % 4);
  return {v, DataOf(number, generation)};
}

}  // namespace tarvelo
