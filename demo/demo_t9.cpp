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

using Bytes = std::vector<std::uint8_t>;

// A letter in the language's own code page: Latin letters are their own codes, Cyrillic ones lie
// from 0xC0 on.
std::uint8_t LetterCode(char16_t letter) {
  if (letter < 0x100) return static_cast<std::uint8_t>(letter);
  return static_cast<std::uint8_t>(letter - u'А' + 0xC0);
}

Bytes Encode(std::u16string_view text) {
  Bytes bytes;
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

// All forms of all words, in order, each once.
std::set<std::u16string> AllWords(const DictionaryWords& dictionary) {
  std::set<std::u16string> all;
  for (const std::u16string& word : Split(dictionary.words)) all.insert(word);
  const std::vector<std::u16string> endings = Split(dictionary.endings);
  for (const std::u16string& stem : Split(dictionary.stems))
    for (const std::u16string& ending : endings) all.insert(ending == u"-" ? stem : stem + ending);
  return all;
}

// The key, 2 .. 9, on which a letter stands.
int KeyOf(char16_t letter) {
  constexpr std::string_view keys = "22233344455566677778889999";         // of a .. z
  constexpr std::string_view plain = "aaaaaaaceeeeiiiidnooooo-ouuuuypy";  // of 0xE0 .. 0xFF
  if (letter >= firstCyrillic) return 2 + (letter - firstCyrillic) / 4;
  if (letter == u'ß') return KeyOf(u's');
  if (letter >= 0xE0) return KeyOf(static_cast<char16_t>(plain[letter - 0xE0]));
  if (letter < u'a' || letter > u'z') throw std::invalid_argument("a letter without a key");
  return keys[letter - u'a'] - '0';
}

// Short words are the common ones.
std::uint8_t Commonness(const std::u16string& word) {
  return static_cast<std::uint8_t>(std::max<int>(1, 16 - static_cast<int>(word.size())));
}

Bytes WordList(const std::set<std::u16string>& words) {
  Bytes list;
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

Bytes KeyList(const std::set<std::u16string>& words) {
  Bytes list;
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

void WriteT9(ImageBuilder& image, Region region) {
  const std::size_t base = region.begin;
  RegionWriter writer(image, region);
  std::size_t entry = base + directoryAt;
  writer.Reserve(directoryAt + dictionaryWords.size() * (nameSize + 8));
  for (const DictionaryWords& dictionary : dictionaryWords) {
    const std::set<std::u16string> words = AllWords(dictionary);
    Bytes content = Encode(dictionary.language);
    const Bytes name = content;
    content.push_back(0);
    const Bytes list = WordList(words);
    content.insert(content.end(), list.begin(), list.end());
    const Bytes keys = KeyList(words);
    content.insert(content.end(), keys.begin(), keys.end());
    writer.Align(cpuPage);
    const std::size_t start = writer.PutInPage(content);

    image.Fill(entry, nameSize, 0);
    image.Data(entry, name);
    image.DWord(entry + nameSize, static_cast<std::uint32_t>(start - base));
    image.Word(entry + nameSize + 4, static_cast<std::uint16_t>(words.size()));
    image.Word(entry + nameSize + 6, static_cast<std::uint16_t>(list.size()));
    entry += nameSize + 8;
  }
  image.Fill(base, directoryAt, 0);
  image.Data(base, Encode(u"T9"));
  image.Word(base + 2, version);
  image.DWord(base + sizeAt, static_cast<std::uint32_t>(writer.Position() - base));
  image.Byte(base + languagesAt, static_cast<std::uint8_t>(dictionaryWords.size()));
}

}  // namespace tarvelo
