// The address calculator: a separate window that converts between page and offset, phone address and
// fullflash offset, and hexadecimal and decimal.
#pragma once

#include <wx/frame.h>

#include <cstdint>
#include <functional>
#include <string>

#include "core/calculator.h"
#include "resources/messages.h"
#include "resources/texts.h"

class wxPanel;
class wxStaticText;
class wxTextCtrl;

namespace tarvelo {

class Calc166 final : public wxFrame {
 public:
  // What the calculator needs from the open dump. Every function may be empty: the calculator also works
  // without a dump.
  struct Dump {
    std::function<std::int32_t()> corrBase;         // 0 without a dump
    std::function<void(std::int64_t offset)> show;  // on a double click on the fullflash address
    std::function<void()> closed;
  };

  Calc166(wxWindow* parent, const Messages& messages, Dump dump);

  void Recaption(const Messages& messages);
  // Call when the corrected base has changed because another dump was opened.
  void BaseChanged();

  wxTextCtrl* Page;
  wxTextCtrl* Offs;
  wxTextCtrl* Addr;
  wxTextCtrl* AdFF;
  wxTextCtrl* L16;
  wxTextCtrl* L10;

  // The error line, empty if all fields are valid.
  [[nodiscard]] wxString Error() const;

 private:
  struct Field {
    wxTextCtrl* text;
    wxStaticText* label;
    Text caption;
  };

  void Arrange(wxPanel& sheet);
  void FitFields();
  void ShowAddress(const AddressFields& fields);
  void Page_Change();
  void Offs_Change();
  void Addr_Change();
  void AdFF_Change();
  void L16_Change();
  void L10_Change();
  void AdFF_DblClick();
  void Form_KeyPress(wxKeyEvent& event);

  void Convert(wxTextCtrl& field, void (Calc166::*change)());
  void Put(wxTextCtrl& field, const std::string& text);
  void ShowFaults();
  [[nodiscard]] std::int32_t CorrBase() const;

  Messages messages_;
  Dump dump_;
  Field fields_[6];
  wxStaticText* error_;
  wxTextCtrl* typed_ = nullptr;  // the field that was changed last; never rewritten meanwhile
  wxString pageBefore_;          // the page when typing into that field began
  bool isUpdating_ = false;      // the program is rewriting fields: ignore their change events
};

}  // namespace tarvelo
