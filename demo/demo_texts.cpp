#include "demo/demo_texts.h"

#include "demo/demo_encoders.h"
#include "demo/demo_phrases.h"

namespace tarvelo {
namespace {

constexpr std::size_t partSize = 0x1000;

// Only the language packs can represent these.
constexpr std::u16string_view controlCharacters = u"\n\x11\x12";
// Strings ended by a byte cannot represent the last small Russian letter either.
constexpr std::u16string_view notInStrings = u"\n\x11\x12я";

std::u16string_view Text(const Phrase& phrase, PhraseLanguage language) {
  const std::u16string_view text = phrase[static_cast<std::size_t>(language)];
  return text.empty() ? phrase[static_cast<std::size_t>(PhraseLanguage::english)] : text;
}

// Writes the messages of one language, each with `encode`, except those that contain one of the characters in
// `without`.
void Encoded(AreaWriter& writer, PhraseLanguage language, TextBytes (*encode)(std::u16string_view),
             std::u16string_view without = controlCharacters) {
  for (const Phrase& phrase : phrases) {
    const std::u16string_view text = Text(phrase, language);
    if (text.find_first_of(without) == std::u16string_view::npos) writer.Put(encode(text));
  }
}

// The last texts belong to the test menu. They show that a string may end in a byte other than zero.
void PlainStrings(AreaWriter& writer) {
  const auto encode = [](std::u16string_view text) { return PlainText(text); };
  Encoded(writer, PhraseLanguage::russian, encode, notInStrings);
  writer.Put(PlainText(u"Service menu"));
  writer.Put(PlainText(u"Tarvelo demo firmware"));
  writer.Put(PlainText(u"Battery test", 0x01));
  writer.Put(PlainText(u"Display test", 0xFF));
  writer.Put(PlainText(u"Keypad test"));
}

void LanguagePack(Flash& flash, AreaWriter& writer, PhraseLanguage language) {
  writer.Align(2);
  const std::size_t pack = writer.Reserve(4 + 4 * phrases.size());
  std::size_t next = PutWord(flash.bytes, pack, phrases.size());
  next = PutWord(flash.bytes, next, static_cast<std::size_t>(language));
  for (const Phrase& phrase : phrases)
    next = flash.PutPointer(next, writer.PutInPage(LanguageText(Text(phrase, language))));
}

}  // namespace

void WriteTexts(Flash& flash, Area area) {
  const auto part = [&](std::size_t number, auto&& write) {
    const std::size_t begin = area.begin + number * partSize;
    AreaWriter writer(flash, {begin, begin + partSize});
    write(writer);
  };
  using enum PhraseLanguage;
  part(0, PlainStrings);
  part(1, [](AreaWriter& w) { Encoded(w, english, CountedText); });
  part(2, [](AreaWriter& w) { Encoded(w, russian, CyrillicText, notInStrings); });
  part(3, [](AreaWriter& w) { Encoded(w, greek, UnicodeText); });
  part(4, [](AreaWriter& w) { Encoded(w, chinese, BigEndianText); });
  part(5, [](AreaWriter& w) { Encoded(w, german, OpenUnicodeText); });
  part(6, [](AreaWriter& w) { Encoded(w, english, PackedText); });

  AreaWriter packs(flash, {area.begin + 7 * partSize, area.end});
  for (std::size_t i = 0; i < phraseLanguages; ++i)
    LanguagePack(flash, packs, static_cast<PhraseLanguage>(i));
  packs.Put(LanguageText(u"All languages"));
}

}  // namespace tarvelo
