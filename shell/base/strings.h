// Converts between the program's texts (UTF-8) and wx's.
#pragma once

#include <wx/string.h>

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

namespace tarvelo {

[[nodiscard]] wxString Wx(std::string_view utf8);
[[nodiscard]] wxString WxPath(const std::filesystem::path& path);
[[nodiscard]] std::string Utf8(const wxString& text);
[[nodiscard]] std::filesystem::path PathFrom(const wxString& text);

// Replaces each "%s" of the text by the number.
[[nodiscard]] wxString WithNumber(wxString text, std::int64_t number);

// Puts a text that contains a blank in double quotes and returns any other text unchanged: for command lines.
[[nodiscard]] std::string quot(std::string_view text);

}  // namespace tarvelo
