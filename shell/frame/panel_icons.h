// The small pictures of the bar of panels, drawn as lines at any size and in any colour.
#pragma once

#include <string_view>

class wxColour;
class wxGraphicsContext;
class wxRect2DDouble;

namespace tarvelo {

// Draws the picture with a name ("hex", "back", the key of an explorer) into a square. If there is none of
// this name, draws the letter in a frame.
void DrawIcon(wxGraphicsContext& context, std::string_view name, char letter, const wxRect2DDouble& square,
              const wxColour& colour);

}  // namespace tarvelo
