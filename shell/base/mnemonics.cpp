#include "shell/base/mnemonics.h"

#include <set>

#include "text/unicode.h"

namespace tarvelo {
namespace {

using Used = std::set<char32_t>;

// The key that types a letter or digit; 0 for a character that keyboards have no key for (ideographs, signs).
char32_t Key(wxUniChar c) {
  const char32_t upper = ToUpper(static_cast<char32_t>(c.GetValue()));
  const auto in = [upper](char32_t first, char32_t last) { return upper >= first && upper <= last; };
  const bool ascii = in('0', '9') || in('A', 'Z');
  const bool beyond = in(0xC0, 0x24F) || in(0x386, 0x3FF) || in(0x400, 0x52F);
  return ascii || beyond ? upper : 0;
}

// The position for the mark, or npos.
std::size_t Place(const wxString& caption, const Used& used) {
  for (const bool wordStart : {true, false})
    for (std::size_t i = 0; i < caption.length(); ++i) {
      const bool starts = i == 0 || caption[i - 1] == ' ' || caption[i - 1] == '(';
      if (starts == wordStart && Key(caption[i]) && !used.contains(Key(caption[i]))) return i;
    }
  return wxString::npos;
}

bool HasLetters(const wxString& caption) {
  for (const wxUniChar c : caption)
    if (Key(c)) return true;
  return false;
}

wxString WithMnemonic(const wxString& caption, Used& used) {
  const auto doubled = [](wxString text) {
    text.Replace("&", "&&");
    return text;
  };
  const std::size_t place = Place(caption, used);
  if (place != wxString::npos) {
    used.insert(Key(caption[place]));
    return doubled(caption.Mid(0, place)) + "&" + doubled(caption.Mid(place));
  }
  if (!HasLetters(caption) && !caption.empty())
    for (char letter = 'A'; letter <= 'Z'; ++letter)
      if (used.insert(static_cast<char32_t>(letter)).second) return doubled(caption) + "(&" + letter + ")";
  return doubled(caption);
}

}  // namespace

std::vector<wxString> WithMnemonics(const std::vector<wxString>& captions) {
  Used used;
  std::vector<wxString> marked;
  for (const wxString& caption : captions) marked.push_back(WithMnemonic(caption, used));
  return marked;
}

}  // namespace tarvelo
