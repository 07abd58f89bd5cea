// Text in the system's clipboard.
#pragma once

#include <string>

namespace tarvelo {

// Puts a text (UTF-8) into the clipboard.
void Copy(const std::string& text);

// The text in the clipboard, in UTF-8; empty if it holds no text.
[[nodiscard]] std::string CopiedText();

}  // namespace tarvelo
