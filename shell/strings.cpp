#include "shell/strings.h"

#include "core/file.h"

namespace tarvelo {

wxString Wx(std::string_view utf8) { return wxString::FromUTF8(utf8.data(), utf8.size()); }

wxString WxPath(const std::filesystem::path& path) { return Wx(PathText(path)); }

std::string Utf8(const wxString& text) { return text.utf8_string(); }

std::filesystem::path PathFrom(const wxString& text) { return PathOf(Utf8(text)); }

std::string quot(std::string_view text) {
  const std::string_view mark = text.find(' ') != text.npos ? "\"" : "";
  return std::string(mark).append(text).append(mark);
}

}  // namespace tarvelo
