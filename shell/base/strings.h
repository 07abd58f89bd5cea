// Between the program's texts (UTF-8) and the desktop's.
#pragma once

#include <wx/string.h>

#include <filesystem>
#include <string>
#include <string_view>

namespace tarvelo {

[[nodiscard]] wxString Wx(std::string_view utf8);
[[nodiscard]] wxString WxPath(const std::filesystem::path& path);
[[nodiscard]] std::string Utf8(const wxString& text);
[[nodiscard]] std::filesystem::path PathFrom(const wxString& text);

// The text in double quote characters when it holds a blank, else as it is: for command lines.
[[nodiscard]] std::string quot(std::string_view text);

}  // namespace tarvelo
