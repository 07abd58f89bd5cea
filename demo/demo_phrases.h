// The messages of the demonstration phone, in its five interface languages.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace tarvelo {

enum class PhraseLanguage { english, german, russian, greek, chinese };
inline constexpr std::size_t phraseLanguages = 5;

// One message in every language. A line feed breaks the line; 0x11 and 0x12 are replaced by the subject of
// the message. An empty text means that the English one is used: the firmware's encoding covers only a part
// of the ideographs.
using Phrase = std::array<std::u16string_view, phraseLanguages>;

// The first phrase is the name of the language.
inline constexpr std::size_t phraseCount = 58;
extern const std::array<Phrase, phraseCount> phrases;

}  // namespace tarvelo
