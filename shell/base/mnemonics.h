// Shortcut letters of menus, chosen by the program: translators need not think of them.
#pragma once

#include <wx/string.h>

#include <vector>

namespace tarvelo {

// The captions of one menu, each with "&" before a letter that no other of them uses: the first
// letter of a word if it is free, else any letter of the caption. A caption without letters of an
// alphabet (Chinese) gets one behind it: "打开(&A)". An "&" of the caption itself is doubled.
[[nodiscard]] std::vector<wxString> WithMnemonics(const std::vector<wxString>& captions);

}  // namespace tarvelo
