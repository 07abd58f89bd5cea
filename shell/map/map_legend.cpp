#include "shell/map/map_legend.h"

#include <wx/bitmap.h>
#include <wx/button.h>
#include <wx/dcmemory.h>
#include <wx/settings.h>
#include <wx/wrapsizer.h>

#include <map>

#include "document/map_kinds.h"
#include "document/map_table.h"
#include "resources/texts.h"
#include "shell/base/blend.h"
#include "shell/base/strings.h"

namespace tarvelo {
namespace {

// In device-independent pixels.
constexpr int square = 12;
constexpr int narrowWidth = 800;

wxBitmap Square(const wxColour& colour, int size) {
  wxBitmap bitmap(size, size);
  wxMemoryDC dc(bitmap);
  dc.SetPen(wxSystemSettings::GetColour(wxSYS_COLOUR_BTNSHADOW));
  dc.SetBrush(colour);
  dc.DrawRectangle(0, 0, size, size);
  return bitmap;
}

// "14.7 %". A nonzero share below 0.1 % must not read as zero.
wxString Percent(Offset size, Offset whole) {
  const double percent = 100.0 * static_cast<double>(size) / static_cast<double>(whole);
  return percent < 0.1 ? wxString::Format("< %.1f %%", 0.1) : wxString::Format("%.1f %%", percent);
}

}  // namespace

wxColour ColourOf(const ClaimGroup& group) { return FromRgb(group.colour); }

MapLegend::MapLegend(wxWindow* parent) : wxPanel(parent) {
  SetSizer(new wxWrapSizer(wxHORIZONTAL, wxREMOVE_LEADING_SPACES));
  Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
    event.Skip();
    if (IsNarrow() == narrow_) return;
    CallAfter([this] {
      Caption();
      GetParent()->Layout();
    });
  });
}

bool MapLegend::IsNarrow() const { return GetParent()->GetSize().x < FromDIP(narrowWidth); }

void MapLegend::Recaption(const Messages& messages) {
  messages_ = messages;
  Caption();
}

void MapLegend::ShowSums(const DumpMap& map) {
  std::map<const ClaimGroup*, Offset> sums;
  Offset whole = 0;
  for (const Claim& region : map.regions) {
    sums[region.kind->group] += region.size;
    whole += region.size;
  }
  entries_.clear();
  GetSizer()->Clear(true);
  for (const ClaimGroup* group : map::Groups())
    if (sums[group] > 0) AddButton(*group, sums[group], whole);
  Caption();
}

void MapLegend::AddButton(const ClaimGroup& group, Offset size, Offset whole) {
  auto* button = new wxButton(this, wxID_ANY, "-", wxDefaultPosition, wxDefaultSize,
                              wxBORDER_NONE | wxBU_EXACTFIT | wxBU_LEFT);
  button->SetBitmap(Square(ColourOf(group), FromDIP(square)));
  button->SetBitmapMargins(FromDIP(4), 0);
  button->Bind(wxEVT_BUTTON, [this, &group](wxCommandEvent&) {
    if (onClick) onClick(group);
  });
  GetSizer()->Add(button, 0, wxALIGN_CENTRE_VERTICAL | wxRIGHT, FromDIP(10));
  entries_.push_back(
      {button, &group, wxString::Format("%lld", static_cast<long long>(size)), Percent(size, whole)});
}

void MapLegend::Caption() {
  narrow_ = IsNarrow();
  for (const Entry& entry : entries_) {
    const wxString name = Wx(NameOf(*entry.group, messages_));
    const wxString full = name + "  " + entry.size + "  " + entry.percent;
    entry.button->SetLabel(narrow_ ? name + "  " + entry.percent : full);
    entry.button->SetToolTip(full + "\n" + Wx(messages_.Msg(Text::NextRegion)));
  }
}

}  // namespace tarvelo
