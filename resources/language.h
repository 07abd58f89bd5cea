// The twelve languages of the interface.
#pragma once

#include <span>
#include <string_view>

namespace tarvelo {

struct Language {
  int number;             // 1 .. 13; 5 is never used, its identifiers belong to other data
  std::string_view code;  // two letters, as the settings file stores them: "RU", "EN", ...
  int charset;            // font character set: 0 default, 161 Greek, 204 Cyrillic, 238 Central European
  std::string_view iso;   // ISO 639-1, as operating systems name it: "ru", "en", ...
};

// All twelve, in the order of their numbers.
[[nodiscard]] std::span<const Language> Languages();

// The language of a stored code ("EN"; upper case), or nullptr where the code is none of the twelve.
[[nodiscard]] const Language* FindLanguage(std::string_view code);

// The language that an operating system's name stands for ("pt_BR", "pt-PT", "de"), or nullptr.
[[nodiscard]] const Language* FindSystemLanguage(std::string_view name);

[[nodiscard]] const Language& English();

}  // namespace tarvelo
