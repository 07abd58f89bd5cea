// The twelve languages of the interface.
#pragma once

#include <span>
#include <string_view>

namespace tarvelo {

struct Language {
  int number;             // 1 .. 13; 5 is unused, its identifiers belong to other data
  std::string_view code;  // two letters, as the settings file stores them: "RU", "EN", ...
  int charset;            // font character set: 0 default, 161 Greek, 204 Cyrillic, 238 Central European
  std::string_view iso;   // ISO 639-1, as operating systems name it: "ru", "en", ...
};

// All twelve, ordered by number.
[[nodiscard]] std::span<const Language> Languages();

// The language with this stored code ("EN", upper case), or nullptr if the code is unknown.
[[nodiscard]] const Language* FindLanguage(std::string_view code);

// The language for a locale name of the operating system ("pt_BR", "pt-PT", "de"), or nullptr.
[[nodiscard]] const Language* FindSystemLanguage(std::string_view name);

[[nodiscard]] const Language& English();

}  // namespace tarvelo
