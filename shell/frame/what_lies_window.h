// A small window that says all that is known about a place, with links.
#pragma once

#include <wx/dialog.h>

#include <functional>

#include "document/what_lies.h"
#include "shell/services/workbench.h"

class wxBoxSizer;
class wxButton;
class wxStaticText;

namespace tarvelo {

class WhatLiesWindow final : public wxDialog {
 public:
  // Shows the record of an explorer in its panel.
  using ShowRecord = std::function<void(const Explorer& explorer, std::size_t record)>;

  WhatLiesWindow(wxWindow* parent, Workbench& bench, ShowRecord showRecord);

  // The place, which must be in the image. Nothing is searched before the user asks for it.
  void ShowPlace(Offset offset);
  // Shows the same place again: something was found, or the language has changed. The window itself follows
  // edits and names.
  void Renew();

 private:
  void Fill();
  void AddThing(wxBoxSizer& column, const KnownThing& thing);
  void AddSearches(wxBoxSizer& column);
  void Search();
  wxStaticText* NewText(const wxString& text);
  wxButton* AddButton(wxBoxSizer& line, Text caption, std::function<void()> run);
  [[nodiscard]] wxString Msg(Text text) const;

  Workbench& bench_;
  ShowRecord showRecord_;
  Offset offset_ = 0;
  bool isStale_ = false;  // bytes or names have changed since the window was filled
  Document::Watch changeWatch_;
  Document::Watch nameWatch_;
};

}  // namespace tarvelo
