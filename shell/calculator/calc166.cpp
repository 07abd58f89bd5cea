#include "shell/calculator/calc166.h"

#include <wx/panel.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include <algorithm>
#include <charconv>
#include <optional>
#include <stdexcept>
#include <utility>

#include "core/calculator.h"
#include "shell/base/legible_red.h"
#include "shell/base/program_picture.h"
#include "shell/base/strings.h"
#include "shell/platform/accessible_name.h"
#include "shell/settings/interface_language.h"

namespace tarvelo {
namespace {

constexpr int ignoredKey = 14;

// The character that a key types: letters up to H (in upper case), digits, control characters; ignoredKey for
// all others.
int Filtered(int key) {
  if (key >= 'a' && key <= 'h') return key - 32;
  const bool kept = key < 32 || (key >= 'A' && key <= 'H') || (key >= '0' && key <= '9');
  return kept ? key : ignoredKey;
}

std::uint32_t DecimalVal(const std::string& text) {
  if (text.empty()) return 0;
  std::uint32_t value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error == std::errc::result_out_of_range) throw std::overflow_error(text);
  if (error != std::errc{} || end != text.data() + text.size()) throw std::invalid_argument(text);
  return value;
}

std::uint32_t HexOf(const wxTextCtrl& field) { return HexVal(Utf8(field.GetValue())); }

// What is wrong with the number that `read` reads; nothing if it is one.
template <typename Read>
std::optional<Text> FaultOf(const Read& read) {
  try {
    (void)read();
  } catch (const std::overflow_error&) {
    return Text::NumberTooLarge;
  } catch (const std::invalid_argument&) {
    return Text::NotANumber;
  }
  return {};
}

}  // namespace

Calc166::Calc166(wxWindow* parent, const Messages& messages, Dump dump)
    : wxFrame(
          parent, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize,
          wxCAPTION | wxCLOSE_BOX | wxSYSTEM_MENU | wxTAB_TRAVERSAL | (parent ? wxFRAME_FLOAT_ON_PARENT : 0)),
      messages_(messages),
      dump_(std::move(dump)) {
  SetIcons(ProgramIcons());
  auto* sheet = new wxPanel(this);
  const auto field = [&](wxTextCtrl*& text, Text caption, void (Calc166::*change)()) {
    auto* label = new wxStaticText(sheet, wxID_ANY, wxString());
    text = new wxTextCtrl(sheet, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize, wxTE_PROCESS_ENTER);
    text->SetMaxLength(10);
    text->Bind(wxEVT_TEXT, [this, text, change](wxCommandEvent&) { Convert(*text, change); });
    text->Bind(wxEVT_CHAR, &Calc166::Form_KeyPress, this);
    return Field{text, label, caption};
  };
  const Field fields[] = {field(Page, Text::Page, &Calc166::Page_Change),
                          field(Offs, Text::OffsetInPage, &Calc166::Offs_Change),
                          field(Addr, Text::PhoneAddress, &Calc166::Addr_Change),
                          field(AdFF, Text::AddressInFullflash, &Calc166::AdFF_Change),
                          field(L16, Text::Hexadecimal, &Calc166::L16_Change),
                          field(L10, Text::Decimal, &Calc166::L10_Change)};
  std::ranges::copy(fields, fields_);
  error_ = new wxStaticText(sheet, wxID_ANY, wxString(), wxDefaultPosition,
                            wxSize(-1, sheet->GetTextExtent("0").y), wxST_ELLIPSIZE_END | wxST_NO_AUTORESIZE);
  Arrange(*sheet);
  Recaption(messages);
  AdFF->Bind(wxEVT_LEFT_DCLICK, [this](wxMouseEvent&) { AdFF_DblClick(); });
  Bind(wxEVT_CHAR_HOOK, [this](wxKeyEvent& event) {
    const int key = event.GetKeyCode();
    if (key == WXK_RETURN || key == WXK_NUMPAD_ENTER || key == WXK_ESCAPE)
      Close();
    else
      event.Skip();
  });
  Bind(wxEVT_CLOSE_WINDOW, [this](wxCloseEvent&) {
    if (dump_.closed) dump_.closed();
    Destroy();
  });
  Bind(wxEVT_SYS_COLOUR_CHANGED, [this](wxSysColourChangedEvent& event) {
    ShowFaults();
    event.Skip();
  });
  // Fields know their height only once they are shown.
  Bind(wxEVT_SHOW, [this](wxShowEvent& event) {
    event.Skip();
    CallAfter([this] { FitFields(); });
  });
  Page->SetFocus();
}

void Calc166::Arrange(wxPanel& sheet) {
  const int gap = FromDIP(6);
  auto* grid = new wxFlexGridSizer(2, gap, 2 * gap);
  grid->AddGrowableCol(1);
  for (const Field& field : fields_) {
    if (field.text == L16) {
      grid->AddSpacer(gap);
      grid->AddSpacer(gap);
    }
    grid->Add(field.label, 0, wxALIGN_CENTRE_VERTICAL);
    field.text->SetFont(wxFont(wxFontInfo().Family(wxFONTFAMILY_TELETYPE)));
    field.text->SetMinSize(wxSize(field.text->GetTextExtent("0").x * 12 + FromDIP(16), -1));
    grid->Add(field.text, 1, wxEXPAND);
  }
  auto* column = new wxBoxSizer(wxVERTICAL);
  column->Add(grid, 1, wxEXPAND | wxALL, 2 * gap);
  column->Add(error_, 0, wxEXPAND | wxLEFT | wxRIGHT | wxBOTTOM, 2 * gap);
  sheet.SetSizer(column);
  auto* whole = new wxBoxSizer(wxVERTICAL);
  whole->Add(&sheet, 1, wxEXPAND);
  SetSizer(whole);
}

void Calc166::Recaption(const Messages& messages) {
  messages_ = messages;
  SetCharacterSet(*this, messages.Current());
  SetTitle(Wx(messages.Msg(Text::AddressCalculator)));
  for (const Field& field : fields_) {
    field.label->SetLabel(Wx(messages.Msg(field.caption)));
    platform::SetAccessibleName(*field.text, Wx(messages.Msg(field.caption)));
  }
  ShowFaults();
  FitFields();
}

// The smallest size that fits the fields, their labels, and the title with its buttons.
void Calc166::FitFields() {
  wxWindow& sheet = *fields_[0].text->GetParent();
  const wxSize needed = sheet.GetSizer()->CalcMin();
  const int title = GetTextExtent(GetTitle()).x + FromDIP(160);
  sheet.SetMinSize(wxSize(std::max(needed.x, title), needed.y));
  GetSizer()->SetSizeHints(this);
}

wxString Calc166::Error() const { return error_->GetLabelText(); }

std::int32_t Calc166::CorrBase() const { return dump_.corrBase ? dump_.corrBase() : 0; }

void Calc166::BaseChanged() {
  if (!Addr->IsEmpty()) Convert(*Addr, &Calc166::Addr_Change);
}

// Runs the change handler of a field that the user typed into. A field that cannot be read leaves the other
// fields unchanged.
void Calc166::Convert(wxTextCtrl& field, void (Calc166::*change)()) {
  if (isUpdating_) return;
  isUpdating_ = true;
  if (std::exchange(typed_, &field) != &field) pageBefore_ = Page->GetValue();
  try {
    (this->*change)();
  } catch (const std::overflow_error&) {
  } catch (const std::invalid_argument&) {
  }
  isUpdating_ = false;
  ShowFaults();
}

// Marks every field that holds no number. The line below the fields names the typed one if it is among them,
// otherwise the first.
void Calc166::ShowFaults() {
  wxString shown;
  for (const Field& field : fields_) {
    wxTextCtrl& text = *field.text;
    const std::string value = Utf8(text.GetValue());
    const auto fault = FaultOf([&] { return &text == L10 ? DecimalVal(value) : HexVal(value); });
    text.SetForegroundColour(fault ? LegibleRed() : wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOWTEXT));
    text.Refresh();
    if (fault && (shown.empty() || &text == typed_)) shown = Wx(messages_.MsgS(*fault, value));
  }
  error_->SetForegroundColour(LegibleRed());
  error_->SetLabelText(shown);
}

// The field that the user types into keeps its text.
void Calc166::Put(wxTextCtrl& field, const std::string& text) {
  if (&field != typed_) field.ChangeValue(Wx(text));
}

void Calc166::ShowAddress(const AddressFields& fields) {
  Put(*Page, fields.Page);
  Put(*Offs, fields.Offs);
  Put(*Addr, fields.Addr);
  Put(*AdFF, fields.AdFF);
}

// The typed offset may carry into the page, so an offset above 3FFF does not count twice.
void Calc166::Page_Change() { ShowAddress(FromPage(HexOf(*Page), HexOf(*Offs) & 0x3FFF, CorrBase())); }

// Each key changes the offset in the page that was there before the first one.
void Calc166::Offs_Change() { ShowAddress(FromPage(HexVal(Utf8(pageBefore_)), HexOf(*Offs), CorrBase())); }

void Calc166::Addr_Change() { ShowAddress(FromAddr(HexOf(*Addr), CorrBase())); }

void Calc166::AdFF_Change() { ShowAddress(FromAdFF(HexOf(*AdFF), CorrBase())); }

void Calc166::L16_Change() { L10->ChangeValue(Wx(std::to_string(HexOf(*L16)))); }

void Calc166::L10_Change() { L16->ChangeValue(Wx(Hex24(DecimalVal(Utf8(L10->GetValue()))))); }

void Calc166::AdFF_DblClick() {
  if (!dump_.show || AdFF->IsEmpty()) return;
  Convert(*AdFF, &Calc166::AdFF_Change);
  if (!FaultOf([this] { return HexOf(*AdFF); })) dump_.show(HexOf(*AdFF));
}

void Calc166::Form_KeyPress(wxKeyEvent& event) {
  const auto key = static_cast<int>(event.GetUnicodeKey());  // WXK_NONE for keys that type nothing
  if (key == WXK_DELETE || Filtered(key) == key) return event.Skip();
  auto& field = dynamic_cast<wxTextCtrl&>(*event.GetEventObject());
  if (Filtered(key) != ignoredKey) field.WriteText(wxString(static_cast<char>(Filtered(key))));
}

}  // namespace tarvelo
