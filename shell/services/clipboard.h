// Texts in the system's clipboard.
#pragma once

#include <string>

namespace tarvelo {

// Puts a text (UTF-8) into the clipboard.
void Copy(const std::string& text);

// The text in the clipboard, in UTF-8; empty where it holds none.
[[nodiscard]] std::string CopiedText();

}  // namespace tarvelo
