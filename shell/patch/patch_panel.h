// The Patch panel: the patch text and its file.
#pragma once

#include <functional>
#include <string>

#include "shell/services/panel.h"
#include "shell/services/panel_commands.h"
#include "shell/services/text_search.h"
#include "shell/services/workbench.h"

namespace tarvelo {

class PatchEditor;

class PatchPanel final : public Panel {
 public:
  explicit PatchPanel(Workbench& bench);

  [[nodiscard]] wxWindow& Window() override;
  [[nodiscard]] const PanelCommands* Commands() override { return &commands_; }
  void Build() override {}
  void Save() override { SavePatch(); }
  void Clear() override;
  void Recaption(const Messages&) override {}

  // Appends a named patch and announces it if asked to. `body` may have several lines, separated by line
  // feeds.
  void AddPatch(const std::string& name, const std::string& body, bool announce);

  // Adds changes to the document (Frame::AddPatch). What it holds already is not added again; if its lines
  // change the same bytes otherwise, asks before replacing them.
  void AskAndAddPatch(Text command, Offset changedBytes, std::size_t all,
                      const std::function<std::vector<Change>()>& makeChanges);

  // Writes the patch file and tells the user. Throws FileError; the text then still counts as unsaved.
  void SavePatch();

  // Shows the instructions that the change in the current line concerns, before and after.
  void ChangeAsCode_Click();

  [[nodiscard]] PatchEditor& Patch() { return *Patch_; }

 private:
  void Patch_Change();
  [[nodiscard]] PanelCommands MakeCommands();

  Workbench& bench_;
  PatchEditor* Patch_;
  TextSearch search_;
  PanelCommands commands_;
};

}  // namespace tarvelo
