// The colours of the dump map, and a legend that says what they mean and how much of the image each covers.
#pragma once

#include <wx/colour.h>
#include <wx/panel.h>

#include <functional>
#include <vector>

#include "document/dump_map.h"
#include "resources/messages.h"

class wxButton;

namespace tarvelo {

// The colour of a group of kinds. The colours are distinguishable with any kind of colour vision; groups of
// little interest are grey.
[[nodiscard]] wxColour ColourOf(const ClaimGroup& group);

// A button for each group in the image, in as many lines as needed. If room is short, the sizes in bytes
// appear only in the tooltips.
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
