// Where a second dump differs from the open one.
#pragma once

#include "shell/panel.h"
#include "shell/panel_commands.h"

namespace tarvelo {

class ListView;
class Main;

class ComparePanel final : public Panel {
 public:
  explicit ComparePanel(Main& main);

  [[nodiscard]] int MenuEntry() const override;
  [[nodiscard]] int Name() const override { return 286; }
  [[nodiscard]] int SaveTextCaption() const override { return 5; }
  [[nodiscard]] wxWindow& Window() override;
  [[nodiscard]] const PanelCommands* Commands() const override { return &commands_; }
  void Build() override;
  void Save() override;
  void Clear() override;
  void Recaption(const Messages& messages) override;

  // Asks for a second dump and compares it with the open one.
  void CompareWith_Click();

 private:
  [[nodiscard]] PanelCommands MakeCommands();

  Main& main_;
  ListView* list_;
  PanelCommands commands_;
};

}  // namespace tarvelo
