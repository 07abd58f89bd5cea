#include "shell/image_strip.h"

namespace tarvelo {

ImageStrip::ImageStrip(wxWindow* parent) : wxWindow(parent, wxID_ANY) {}

void ImageStrip::Show(Offset, std::vector<StripPart>) {}

void ImageStrip::Mark(Offset, Offset) {}

}  // namespace tarvelo
