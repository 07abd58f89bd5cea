// The colours of the dump map, and the line that says what they mean and how much of the image has each.
#pragma once

#include <wx/panel.h>

#include <cstddef>
#include <functional>
#include <vector>

#include "document/dump_map.h"
#include "resources/messages.h"

class wxButton;

namespace tarvelo {

// Kinds of regions that have a colour in common: "picture", "ringtone".
struct MapGroup {
  MapKind kind;  // the one that the group is called by
  wxColour colour;
};
[[nodiscard]] std::size_t GroupOf(MapKind kind);
[[nodiscard]] const MapGroup& GroupAt(std::size_t group);

// A button for each group that the image has, in as many lines as they need. Where there is little room the
// sizes in bytes are left to the tooltips.
class MapLegend final : public wxPanel {
 public:
  explicit MapLegend(wxWindow* parent);

  void Recaption(const Messages& messages);
  void ShowSums(const DumpMap& map);

  std::function<void(std::size_t group)> onClick;

 private:
  struct Entry {
    wxButton* button;
    std::size_t group;
    wxString size;
    wxString percent;
  };

  void AddButton(std::size_t group, Offset size, Offset whole);
  [[nodiscard]] bool IsNarrow() const;
  void Caption();

  std::vector<Entry> entries_;
  Messages messages_;
  bool narrow_ = false;
};

}  // namespace tarvelo
