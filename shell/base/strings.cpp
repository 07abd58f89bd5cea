#include "shell/base/strings.h"

#include "core/file.h"
#include "text/unicode.h"

namespace tarvelo {

// wx converts malformed UTF-8 to an empty text, but a file's name on Linux may be malformed.
wxString Wx(std::string_view utf8) {
  const wxString text = wxString::FromUTF8(utf8.data(), utf8.size());
  if (!text.empty() || utf8.empty()) return text;
  const std::string mended = ToUtf8(ToUtf16(utf8));
  return wxString::FromUTF8(mended.data(), mended.size());
}

wxString WxPath(const std::filesystem::path& path) { return Wx(PathText(path)); }

std::string Utf8(const wxString& text) { return text.utf8_string(); }

std::filesystem::path PathFrom(const wxString& text) { return PathOf(Utf8(text)); }

wxString WithNumber(wxString text, std::int64_t number) {
  text.Replace("%s", std::to_string(number));
  return text;
}

std::string quot(std::string_view text) {
  const std::string_view mark = text.find(' ') != text.npos ? "\"" : "";
  return std::string(mark).append(text).append(mark);
}

}  // namespace tarvelo
