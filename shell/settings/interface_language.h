// The language of the windows: the one at startup, and fonts that can display it.
#pragma once

#include "resources/language.h"

class wxWindow;

namespace tarvelo {

class Settings;

// The stored language, otherwise that of the operating system, otherwise English.
[[nodiscard]] const Language& StoredLanguage(const Settings& settings);

// Gives a window and all its children fonts of the language's character set.
void SetCharacterSet(wxWindow& window, const Language& language);

}  // namespace tarvelo
