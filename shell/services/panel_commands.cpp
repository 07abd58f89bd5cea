#include "shell/services/panel_commands.h"

#include <wx/window.h>

#include <algorithm>
#include <iterator>

#include "resources/messages.h"
#include "shell/base/mnemonics.h"
#include "shell/base/strings.h"
#include "shell/platform/default_entry.h"

namespace tarvelo {
namespace {

const PanelCommand* FindIn(const std::vector<PanelCommand>& commands, int id) {
  for (const PanelCommand& command : commands) {
    if (id != 0 && command.id == id) return &command;
    if (const PanelCommand* found = FindIn(command.entries, id)) return found;
  }
  return nullptr;
}

bool IsEnabled(const PanelCommand& command) { return !command.enabled || command.enabled(); }

bool HasNoName(const PanelCommand& command) {
  if (!command.entries.empty()) return std::ranges::all_of(command.entries, HasNoName);
  return command.name && command.name().empty();
}

wxString CaptionOf(const PanelCommand& command, const Messages& messages) {
  return Wx(command.name ? command.name() : std::string(messages.Msg(command.caption))) + command.captionEnd;
}

std::unique_ptr<wxMenu> MenuOf(std::vector<PanelCommand> commands, const Messages& messages) {
  std::erase_if(commands, HasNoName);
  std::vector<wxString> captions;
  for (const PanelCommand& command : commands) captions.push_back(CaptionOf(command, messages));
  captions = WithMnemonics(captions);
  auto menu = std::make_unique<wxMenu>();
  for (std::size_t i = 0; i < commands.size(); ++i) {
    const PanelCommand& command = commands[i];
    const wxString shortcut = *command.shortcut ? wxString("\t") + command.shortcut : wxString();
    const wxString help = Wx(messages.Msg(command.help));
    if (!command.entries.empty())
      menu->AppendSubMenu(MenuOf(command.entries, messages).release(), captions[i], help);
    else if (command.id == 0)
      menu->AppendSeparator();
    else
      menu->Append(command.id, captions[i] + shortcut, help, command.checked ? wxITEM_CHECK : wxITEM_NORMAL);
  }
  return menu;
}

void UpdateIn(const std::vector<PanelCommand>& commands, wxMenu& menu, bool reachable) {
  for (const PanelCommand& command : commands) {
    UpdateIn(command.entries, menu, reachable);
    if (command.id == 0 || !menu.FindItem(command.id)) continue;
    menu.Enable(command.id, reachable || IsEnabled(command));
    if (command.checked) menu.Check(command.id, command.checked());
  }
}

}  // namespace

void Append(std::vector<PanelCommand>& commands, std::vector<PanelCommand> more) {
  if (more.empty()) return;
  if (!commands.empty()) commands.push_back({});
  std::ranges::move(more, std::back_inserter(commands));
}

wxPoint MenuPlace(const wxContextMenuEvent& event, const wxWindow& window, const wxPoint& placeForKey) {
  const bool isKey = event.GetPosition() == wxDefaultPosition;
  return isKey ? window.ClientToScreen(placeForKey) : event.GetPosition();
}

std::unique_ptr<wxMenu> PanelCommands::MakeMenu(const Messages& messages) const {
  std::unique_ptr<wxMenu> menu = MenuOf(commands_, messages);
  Update(*menu);
  return menu;
}

void PanelCommands::Update(wxMenu& menu, bool reachable) const { UpdateIn(commands_, menu, reachable); }

const PanelCommand* PanelCommands::Find(int id) const { return FindIn(commands_, id); }

bool PanelCommands::CanRun(int id) const {
  const PanelCommand* command = Find(id);
  return command && command->run && IsEnabled(*command);
}

int PanelCommands::PopUp(wxWindow& window, const Messages& messages, const wxPoint& place) const {
  const std::unique_ptr<wxMenu> menu = MakeMenu(messages);
  if (defaultId_ != 0) platform::ShowAsDefault(*menu, defaultId_);
  // At the mouse, or in the window's corner if the keyboard opened the menu while the mouse was elsewhere.
  const wxPoint mouse = window.ScreenToClient(place == wxDefaultPosition ? wxGetMousePosition() : place);
  const bool atMouse = window.GetClientRect().Contains(mouse);
  const int id =
      window.GetPopupMenuSelectionFromUser(*menu, atMouse ? mouse : window.FromDIP(wxPoint(24, 24)));
  return id == wxID_NONE ? 0 : id;
}

}  // namespace tarvelo
