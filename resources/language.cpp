#include "resources/language.h"

#include <algorithm>
#include <array>

namespace tarvelo {
namespace {

constexpr std::array<Language, 12> languages{{
    {1, "RU", 204, "ru"},
    {2, "EN", 0, "en"},
    {3, "PL", 0, "pl"},
    {4, "CH", 0, "zh"},
    {6, "HR", 0, "hr"},
    {7, "ES", 0, "es"},
    {8, "IT", 0, "it"},
    {9, "FR", 0, "fr"},
    {10, "DE", 0, "de"},
    {11, "PT", 0, "pt"},
    {12, "GR", 161, "el"},
    {13, "CZ", 238, "cs"},
}};

const Language* Find(std::string_view Language::*member, std::string_view value) {
  const auto found = std::ranges::find(languages, value, member);
  return found == languages.end() ? nullptr : &*found;
}

}  // namespace

std::span<const Language> Languages() { return languages; }

const Language* FindLanguage(std::string_view code) { return Find(&Language::code, code); }

const Language* FindSystemLanguage(std::string_view name) {
  return Find(&Language::iso, name.substr(0, name.find_first_of("_-.@")));
}

const Language& English() { return *FindLanguage("EN"); }

}  // namespace tarvelo
