// The language of the windows: which one at the start, and fonts that can show it.
#pragma once

#include "resources/language.h"

class wxWindow;

namespace tarvelo {

class Settings;

// The stored language, else the operating system's, else English.
[[nodiscard]] const Language& StoredLanguage(const Settings& settings);

// Gives a window and all its children fonts of the language's character set.
void SetCharacterSet(wxWindow& window, const Language& language);

}  // namespace tarvelo
