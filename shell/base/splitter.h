// A splitter window of the usual kind.
#pragma once

#include <wx/splitter.h>

namespace tarvelo {

// Its halves follow the mouse while the user drags the sash. `parent` owns it.
[[nodiscard]] inline wxSplitterWindow* NewSplitter(wxWindow& parent) {
  return new wxSplitterWindow(&parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxSP_LIVE_UPDATE);
}

}  // namespace tarvelo
