#include "shell/base/program_picture.h"

#include <wx/imagbmp.h>
#include <wx/mstream.h>

#include "icon_file.h"

namespace tarvelo {

wxIconBundle ProgramIcons() {
  if (!wxImage::FindHandler(wxBITMAP_TYPE_ICO)) wxInitAllImageHandlers();
  wxMemoryInputStream stream(embedded::tarvelo_ico.data(), embedded::tarvelo_ico.size());
  return {stream, wxBITMAP_TYPE_ICO};
}

wxBitmap AboutPicture() {
  wxBitmap picture;
  picture.CopyFromIcon(ProgramIcons().GetIcon(wxSize(128, 128)));
  return picture;
}

}  // namespace tarvelo
