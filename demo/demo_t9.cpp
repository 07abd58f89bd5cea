#include "demo/demo_t9.h"

#include <algorithm>
#include <set>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "demo/demo_t9_words.h"

namespace tarvelo {
namespace {

constexpr std::uint16_t version = 0x0410;
constexpr std::size_t sizeAt = 4;
constexpr std::size_t languagesAt = 8;
constexpr std::size_t directoryAt = 16;
constexpr std::size_t nameSize = 8;
constexpr char16_t firstCyrillic = u'а';

// A letter in the language's own code page: Latin letters are their own codes, Cyrillic ones begin at 0xC0.
std::uint8_t LetterCode(char16_t letter) {
  if (letter < 0x100) return static_cast<std::uint8_t>(letter);
  return static_cast<std::uint8_t>(letter - u'А' + 0xC0);
}

ByteBuffer Encode(std::u16string_view text) {
  ByteBuffer bytes;
  for (const char16_t letter : text) bytes.push_back(LetterCode(letter));
  return bytes;
}

std::vector<std::u16string> Split(std::u16string_view text) {
  std::vector<std::u16string> words(1);
  for (const char16_t c : text) {
    if (c == u' ')
      words.emplace_back();
    else
      words.back() += c;
  }
  return words;
}

// All forms of all words, sorted, without duplicates.
std::set<std::u16string> AllWords(const DictionaryWords& dictionary) {
  std::set<std::u16string> all;
  for (const std::u16string& word : Split(dictionary.words)) all.insert(word);
  const std::vector<std::u16string> endings = Split(dictionary.endings);
  for (const std::u16string& stem : Split(dictionary.stems))
    for (const std::u16string& ending : endings) all.insert(ending == u"-" ? stem : stem + ending);
  return all;
}

// The key of a letter, 2 .. 9.
int KeyOf(char16_t letter) {
  constexpr std::string_view keys = "22233344455566677778889999";         // of a .. z
  constexpr std::string_view plain = "aaaaaaaceeeeiiiidnooooo-ouuuuypy";  // of 0xE0 .. 0xFF
  if (letter >= firstCyrillic) return 2 + (letter - firstCyrillic) / 4;
  if (letter == u'ß') return KeyOf(u's');
  if (letter >= 0xE0) return KeyOf(static_cast<char16_t>(plain[letter - 0xE0]));
  if (letter < u'a' || letter > u'z') throw std::invalid_argument("a letter without a key");
  return keys[letter - u'a'] - '0';
}

// Takes short words as the common ones.
std::uint8_t Commonness(const std::u16string& word) {
  return static_cast<std::uint8_t>(std::max<int>(1, 16 - static_cast<int>(word.size())));
}

ByteBuffer WordList(const std::set<std::u16string>& words) {
  ByteBuffer list;
  std::u16string before;
  for (const std::u16string& word : words) {
    const auto differs = std::mismatch(word.begin(), word.end(), before.begin(), before.end()).first;
    list.push_back(static_cast<std::uint8_t>(differs - word.begin()));
    for (auto letter = differs; letter != word.end(); ++letter) list.push_back(LetterCode(*letter));
    list.push_back(Commonness(word));
    before = word;
  }
  return list;
}

ByteBuffer KeyList(const std::set<std::u16string>& words) {
  ByteBuffer list;
  for (const std::u16string& word : words) {
    list.push_back(static_cast<std::uint8_t>(word.size()));
    for (std::size_t i = 0; i < word.size(); i += 2) {
      const int second = i + 1 < word.size() ? KeyOf(word[i + 1]) : 0;
      list.push_back(static_cast<std::uint8_t>(KeyOf(word[i]) | second << 4));
    }
  }
  return list;
}

}  // namespace

void WriteT9(Flash& flash, Area area) {
  const std::size_t base = area.begin;
  AreaWriter writer(flash, area);
  std::size_t entry = base + directoryAt;
  writer.Reserve(directoryAt + dictionaryWords.size() * (nameSize + 8));
  for (const DictionaryWords& dictionary : dictionaryWords) {
    const std::set<std::u16string> words = AllWords(dictionary);
    ByteBuffer content = Encode(dictionary.language);
    const ByteBuffer name = content;
    content.push_back(0);
    const ByteBuffer list = WordList(words);
    AppendBytes(content, list);
    AppendBytes(content, KeyList(words));
    writer.Align(cpuPage);
    const std::size_t start = writer.PutInPage(content);

    PutFill(flash.bytes, entry, nameSize, 0);
    PutBytes(flash.bytes, entry, name);
    PutDWord(flash.bytes, entry + nameSize, start - base);
    PutWord(flash.bytes, entry + nameSize + 4, words.size());
    PutWord(flash.bytes, entry + nameSize + 6, list.size());
    entry += nameSize + 8;
  }
  PutFill(flash.bytes, base, directoryAt, 0);
  PutBytes(flash.bytes, base, Encode(u"T9"));
  PutWord(flash.bytes, base + 2, version);
  PutDWord(flash.bytes, base + sizeAt, writer.Position() - base);
  PutByte(flash.bytes, base + languagesAt, static_cast<std::uint8_t>(dictionaryWords.size()));
}

}  // namespace tarvelo
