#include "shell/mnemonics.h"

#include <wx/crt.h>

#include <set>

namespace tarvelo {
namespace {

using Used = std::set<wxUniChar::value_type>;

// Letters of an alphabet and digits: what a keyboard has keys for. Ideographs have none.
bool HasKey(wxUniChar c) { return c.GetValue() < 0x2E80 && wxIsalnum(c); }

wxUniChar::value_type Key(wxUniChar c) { return static_cast<wxUniChar::value_type>(wxToupper(c)); }

// Where to put the mark, or npos.
std::size_t Place(const wxString& caption, const Used& used) {
  for (const bool wordStart : {true, false})
    for (std::size_t i = 0; i < caption.length(); ++i) {
      const bool starts = i == 0 || caption[i - 1] == ' ' || caption[i - 1] == '(';
      if (starts == wordStart && HasKey(caption[i]) && !used.contains(Key(caption[i]))) return i;
    }
  return wxString::npos;
}

bool HasLetters(const wxString& caption) {
  for (const wxUniChar c : caption)
    if (HasKey(c)) return true;
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
      if (used.insert(static_cast<unsigned char>(letter)).second)
        return doubled(caption) + "(&" + letter + ")";
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
