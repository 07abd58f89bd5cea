// Mnemonic letters of menus. The program chooses them, so translators need not.
#pragma once

#include <wx/string.h>

#include <vector>

namespace tarvelo {

// Puts "&" before a letter of each caption of one menu, a different letter in each: the first letter of a
// word if one is free, otherwise any free letter. A caption without alphabetic letters (Chinese) gets a
// letter appended: "打开(&A)". Doubles each "&" that a caption contains.
[[nodiscard]] std::vector<wxString> WithMnemonics(const std::vector<wxString>& captions);

}  // namespace tarvelo
