// The colours of the dump map, and the line that says what they mean and how much of the image has each.
#pragma once

#include <wx/colour.h>
#include <wx/panel.h>

#include <functional>
#include <vector>

#include "document/dump_map.h"
#include "resources/messages.h"

class wxButton;

namespace tarvelo {

// The colour of a group of kinds. They are chosen so that people with any kind of colour vision can tell
// them apart; what is of little interest is grey.
[[nodiscard]] wxColour ColourOf(const ClaimGroup& group);

// A button for each group that the image has, in as many lines as they need. Where there is little room the
// sizes in bytes are left to the tooltips.
class MapLegend final : public wxPanel {
 public:
  explicit MapLegend(wxWindow* parent);

  void Recaption(const Messages& messages);
  void ShowSums(const DumpMap& map);

  std::function<void(const ClaimGroup& group)> onClick;

 private:
  struct Entry {
    wxButton* button;
    const ClaimGroup* group;
    wxString size;
    wxString percent;
  };

  void AddButton(const ClaimGroup& group, Offset size, Offset whole);
  [[nodiscard]] bool IsNarrow() const;
  void Caption();

  std::vector<Entry> entries_;
  Messages messages_;
  bool narrow_ = false;
};

}  // namespace tarvelo
