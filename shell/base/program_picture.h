// The program's picture, from the icon file that is built in.
#pragma once

#include <wx/bitmap.h>
#include <wx/iconbndl.h>

namespace tarvelo {

// For windows and the task bar, in all sizes.
[[nodiscard]] wxIconBundle ProgramIcons();

// Large, for the Info panel.
[[nodiscard]] wxBitmap AboutPicture();

}  // namespace tarvelo
