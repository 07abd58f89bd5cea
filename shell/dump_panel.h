// The map of the dump: a strip of the whole image and the list of its regions.
#pragma once

#include "shell/panel.h"
#include "shell/panel_commands.h"

namespace tarvelo {

class ListView;
class Main;

class DumpPanel final : public Panel {
 public:
  explicit DumpPanel(Main& main);

  [[nodiscard]] int MenuEntry() const override;
  [[nodiscard]] int Name() const override { return 86; }
  [[nodiscard]] int SaveTextCaption() const override { return 5; }
  [[nodiscard]] wxWindow& Window() override;
  [[nodiscard]] const PanelCommands* Commands() const override { return &commands_; }
  void Build() override;
  void Save() override;
  void Clear() override;
  void Recaption(const Messages& messages) override;

 private:
  [[nodiscard]] PanelCommands MakeCommands();

  Main& main_;
  ListView* list_;
  PanelCommands commands_;
};

}  // namespace tarvelo
