#include "shell/services/clipboard.h"

#include <wx/clipbrd.h>

#include "shell/base/strings.h"

namespace tarvelo {

void Copy(const std::string& text) {
  const wxClipboardLocker lock;
  if (!!lock) wxTheClipboard->SetData(new wxTextDataObject(Wx(text)));
}

std::string CopiedText() {
  const wxClipboardLocker lock;
  wxTextDataObject text;
  return !!lock && wxTheClipboard->GetData(text) ? Utf8(text.GetText()) : std::string();
}

}  // namespace tarvelo
