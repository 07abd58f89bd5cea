// The EEPROM panel: the list of blocks, live and deleted.
#pragma once

#include <string>

#include "shell/panel.h"
#include "shell/panel_commands.h"
#include "text/bytes.h"

namespace tarvelo {

class Main;

class EepromPanel final : public Panel {
 public:
  explicit EepromPanel(Main& main);

  [[nodiscard]] int MenuEntry() const override;
  [[nodiscard]] int Name() const override { return 201; }
  [[nodiscard]] int SaveTextCaption() const override { return 5; }
  [[nodiscard]] wxWindow& Window() override;
  [[nodiscard]] const PanelCommands* Commands() const override { return &commands_; }
  void Build() override;
  void Save() override;
  void Clear() override;
  void Recaption(const Messages& messages) override;

 private:
  Main& main_;
  wxWindow* window_;
  PanelCommands commands_;
};

}  // namespace tarvelo
