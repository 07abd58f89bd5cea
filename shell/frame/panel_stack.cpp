#include "shell/frame/panel_stack.h"

#include <wx/frame.h>
#include <wx/sizer.h>

#include <algorithm>

#include "resources/messages.h"
#include "resources/texts.h"
#include "shell/base/product.h"
#include "shell/base/strings.h"
#include "shell/frame/menus.h"
#include "shell/platform/accessible_name.h"
#include "shell/services/ids.h"
#include "shell/services/panel.h"
#include "shell/services/panel_commands.h"

namespace tarvelo {

void PanelStack::Take(std::unique_ptr<Panel> panel) {
  part_.Add(&panel->Window(), 1, wxEXPAND);
  panel->Window().Hide();
  panels_.push_back(std::move(panel));
}

void PanelStack::ShowPanel(Panel& panel) {
  if (visible_ == &panel) return;
  panel.Build();
  UnVis();
  panel.Window().Show();
  part_.Layout();  // at once: what follows may draw the panel
  panel.FirstFocus().SetFocus();
  visible_ = &panel;
  ShowTitle();
  menus_.ShowPanelMenu(panel.Commands(), panel.Traits().name, texts_);
  CheckMenu();
  menus_.CaptionSaveText(texts_, panel.Traits().saveTextCaption);
}

void PanelStack::RenewMenu(Panel& panel) {
  if (visible_ == &panel) menus_.ShowPanelMenu(panel.Commands(), panel.Traits().name, texts_);
}

void PanelStack::UnVis() {
  for (const auto& panel : panels_) panel->Window().Hide();
  visible_ = nullptr;
  menus_.ShowPanelMenu(nullptr, Text{}, texts_);
  menus_.CaptionSaveText(texts_, Text::SaveListAsText);
}

Panel* PanelStack::Of(int menuEntry) const {
  const auto found =
      std::ranges::find(panels_, menuEntry, [](const auto& panel) { return panel->Traits().menuEntry; });
  return found == panels_.end() ? nullptr : found->get();
}

void PanelStack::Clear() {
  for (const auto& panel : panels_) panel->Clear();
}

void PanelStack::Recaption() {
  menus_.Recaption(texts_, visible_ ? visible_->Traits().saveTextCaption : Text::SaveListAsText);
  for (const auto& panel : panels_) {
    panel->Recaption(texts_);
    platform::SetAccessibleName(panel->Window(), Wx(texts_.Msg(panel->Traits().name)));
  }
  if (visible_) ShowTitle();
}

void PanelStack::ShowTitle() {
  window_.SetTitle(wxString(productName) + " - " + Wx(texts_.Msg(visible_->Traits().name)));
}

void PanelStack::CheckMenu() { menus_.CheckPanel(visible_ ? visible_->Traits().menuEntry : Id::None); }

int PanelStack::PopUp(const wxPoint& place) {
  const PanelCommands* own = visible_ ? visible_->Commands() : nullptr;
  return own ? own->PopUp(visible_->Window(), texts_, place) : Id::None;
}

}  // namespace tarvelo
