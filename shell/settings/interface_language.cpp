#include "shell/settings/interface_language.h"

#include <wx/intl.h>
#include <wx/window.h>

#include "shell/base/strings.h"
#include "shell/settings/settings.h"

namespace tarvelo {
namespace {

wxFontEncoding EncodingOf(int charset) {
  switch (charset) {
    case 161: return wxFONTENCODING_CP1253;
    case 204: return wxFONTENCODING_CP1251;
    case 238: return wxFONTENCODING_CP1250;
    default: return wxFONTENCODING_DEFAULT;
  }
}

void SetFontEncoding(wxWindow& window, wxFontEncoding encoding) {
  wxFont font = window.GetFont();
  font.SetEncoding(encoding);
  window.SetFont(font);
  for (wxWindow* child : window.GetChildren()) SetFontEncoding(*child, encoding);
}

}  // namespace

const Language& StoredLanguage(const Settings& settings) {
  const Language* language = FindLanguage(settings.GetIni("General", "Language"));
  if (!language)
    language = FindSystemLanguage(Utf8(wxLocale::GetLanguageCanonicalName(wxLocale::GetSystemLanguage())));
  return language ? *language : English();
}

void SetCharacterSet(wxWindow& window, const Language& language) {
  SetFontEncoding(window, EncodingOf(language.charset));
}

}  // namespace tarvelo
