#include "shell/dump_panel.h"

#include "shell/list_view.h"
#include "shell/main.h"
#include "shell/strings.h"

namespace tarvelo {

DumpPanel::DumpPanel(Main& main) : main_(main), list_(new ListView(&main)), commands_(MakeCommands()) {}

int DumpPanel::MenuEntry() const { return Dump; }

wxWindow& DumpPanel::Window() { return *list_; }

void DumpPanel::Build() {}

void DumpPanel::Save() { main_.SaveList(list_->GetTable(), 'D'); }

void DumpPanel::Clear() { list_->SetTable({}); }

void DumpPanel::Recaption(const Messages& messages) { list_->SetFilterHint(Wx(messages.Msg(221))); }

PanelCommands DumpPanel::MakeCommands() { return PanelCommands({}); }

}  // namespace tarvelo
