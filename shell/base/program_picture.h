// The program's picture, from the embedded icon file.
#pragma once

#include <wx/bitmap.h>
#include <wx/iconbndl.h>

namespace tarvelo {

// All sizes, for windows and the taskbar.
[[nodiscard]] wxIconBundle ProgramIcons();

// Large, for the Info panel.
[[nodiscard]] wxBitmap AboutPicture();

}  // namespace tarvelo
