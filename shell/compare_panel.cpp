#include "shell/compare_panel.h"

#include "shell/list_view.h"
#include "shell/main.h"
#include "shell/strings.h"

namespace tarvelo {

ComparePanel::ComparePanel(Main& main) : main_(main), list_(new ListView(&main)), commands_(MakeCommands()) {}

int ComparePanel::MenuEntry() const { return ComparePanelMenu; }

wxWindow& ComparePanel::Window() { return *list_; }

void ComparePanel::Build() {}

void ComparePanel::Save() { main_.SaveList(list_->GetTable(), 'C'); }

void ComparePanel::Clear() { list_->SetTable({}); }

void ComparePanel::Recaption(const Messages& messages) { list_->SetFilterHint(Wx(messages.Msg(221))); }

void ComparePanel::CompareWith_Click() {}

PanelCommands ComparePanel::MakeCommands() { return PanelCommands({}); }

}  // namespace tarvelo
