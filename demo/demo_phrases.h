// What the demonstration phone says, in its five interface languages.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace tarvelo {

enum class PhraseLanguage { english, german, russian, greek, chinese };
inline constexpr std::size_t phraseLanguages = 5;

// One message in every language. Control characters: a line feed breaks the line, 0x11 and 0x12 are
// replaced by what the message is about. An empty text is said in English: the firmware's encoding
// reaches only a part of the ideographs.
using Phrase = std::array<std::u16string_view, phraseLanguages>;

// The first names the language itself.
inline constexpr std::size_t phraseCount = 58;
extern const std::array<Phrase, phraseCount> phrases;

}  // namespace tarvelo
