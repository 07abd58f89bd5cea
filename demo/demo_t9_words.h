// The words of the demonstration's text input dictionaries.
#pragma once

#include <array>
#include <string_view>

namespace tarvelo {

// A language's words, separated by blanks: complete words, and stems that take each of the endings. The
// language's letters all belong to one single-byte code page.
struct DictionaryWords {
  std::u16string_view language;
  std::u16string_view words;
  std::u16string_view stems;
  std::u16string_view endings;
};

extern const std::array<DictionaryWords, 4> dictionaryWords;

}  // namespace tarvelo
