#include "shell/map/map_legend.h"

#include <wx/bitmap.h>
#include <wx/button.h>
#include <wx/dcmemory.h>
#include <wx/settings.h>
#include <wx/wrapsizer.h>

#include <array>
#include <iterator>

#include "document/map_table.h"
#include "shell/base/strings.h"

namespace tarvelo {
namespace {

enum Group : std::size_t {
  Header,
  T9,
  Blocks,
  DeletedBlocks,
  Sounds,
  Images,
  Texts,
  Code,
  Erased,
  Filling,
  Unknown
};

// Colours that people with any kind of colour vision can tell apart; what is of little interest is grey.
const MapGroup groups[] = {
    {MapKind::FirmwareHeader, wxColour(0xD5, 0x5E, 0x00)},
    {MapKind::T9, wxColour(0xF0, 0xE4, 0x42)},
    {MapKind::EepromData, wxColour(0x00, 0x72, 0xB2)},
    {MapKind::EepromDeletedData, wxColour(0x56, 0xB4, 0xE9)},
    {MapKind::Melody, wxColour(0xCC, 0x79, 0xA7)},
    {MapKind::Picture, wxColour(0x00, 0x9E, 0x73)},
    {MapKind::Text, wxColour(0xE6, 0x9F, 0x00)},
    {MapKind::Code, wxColour(0x88, 0x22, 0x55)},
    {MapKind::Erased, wxColour(0xDC, 0xDC, 0xDC)},
    {MapKind::Filling, wxColour(0x50, 0x50, 0x50)},
    {MapKind::Unknown, wxColour(0x94, 0x94, 0x94)},
};

// In device independent pixels.
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

// "14.7 %". Less than a tenth is not nothing.
wxString Percent(Offset size, Offset whole) {
  const double percent = 100.0 * static_cast<double>(size) / static_cast<double>(whole);
  return percent < 0.1 ? wxString::Format("< %.1f %%", 0.1) : wxString::Format("%.1f %%", percent);
}

}  // namespace

std::size_t GroupOf(MapKind kind) {
  switch (kind) {
    case MapKind::FirmwareHeader: return Header;
    case MapKind::T9:
    case MapKind::T9Free: return T9;
    case MapKind::EepromHeader:
    case MapKind::EepromData: return Blocks;
    case MapKind::EepromDeletedHeader:
    case MapKind::EepromDeletedData: return DeletedBlocks;
    case MapKind::RingtoneTable:
    case MapKind::RingtoneFile:
    case MapKind::RingtonePointer:
    case MapKind::Melody: return Sounds;
    case MapKind::PictureTable:
    case MapKind::PictureHeader:
    case MapKind::Picture: return Images;
    case MapKind::Text: return Texts;
    case MapKind::Code: return Code;
    case MapKind::EmptyBlock:
    case MapKind::Erased: return Erased;
    case MapKind::Filling: return Filling;
    case MapKind::Unknown: break;
  }
  return Unknown;
}

const MapGroup& GroupAt(std::size_t group) { return groups[group]; }

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
  std::array<Offset, std::size(groups)> sums{};
  Offset whole = 0;
  for (const MapRegion& region : map.regions) {
    sums[GroupOf(region.kind)] += region.size;
    whole += region.size;
  }
  entries_.clear();
  GetSizer()->Clear(true);
  for (std::size_t group = 0; group < sums.size(); ++group)
    if (sums[group] > 0) AddButton(group, sums[group], whole);
  Caption();
}

void MapLegend::AddButton(std::size_t group, Offset size, Offset whole) {
  auto* button = new wxButton(this, wxID_ANY, "-", wxDefaultPosition, wxDefaultSize,
                              wxBORDER_NONE | wxBU_EXACTFIT | wxBU_LEFT);
  button->SetBitmap(Square(groups[group].colour, FromDIP(square)));
  button->SetBitmapMargins(FromDIP(4), 0);
  button->Bind(wxEVT_BUTTON, [this, group](wxCommandEvent&) {
    if (onClick) onClick(group);
  });
  GetSizer()->Add(button, 0, wxALIGN_CENTRE_VERTICAL | wxRIGHT, FromDIP(10));
  entries_.push_back(
      {button, group, wxString::Format("%lld", static_cast<long long>(size)), Percent(size, whole)});
}

void MapLegend::Caption() {
  narrow_ = IsNarrow();
  for (const Entry& entry : entries_) {
    const wxString name = Wx(WhatOf({.kind = groups[entry.group].kind}, messages_));
    const wxString full = name + "  " + entry.size + "  " + entry.percent;
    entry.button->SetLabel(narrow_ ? name + "  " + entry.percent : full);
    entry.button->SetToolTip(full + "\n" + Wx(messages_.Msg(Text::NextRegion)));
  }
}

}  // namespace tarvelo
