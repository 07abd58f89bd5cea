// The search for byte patterns and the list of its hits.
#pragma once

#include <string>

#include "shell/panel.h"
#include "shell/panel_commands.h"
#include "text/bytes.h"

namespace tarvelo {

class Main;

class HitsPanel final : public Panel {
 public:
  explicit HitsPanel(Main& main);

  [[nodiscard]] int MenuEntry() const override;
  [[nodiscard]] int Name() const override { return 229; }
  [[nodiscard]] int SaveTextCaption() const override { return 5; }
  [[nodiscard]] wxWindow& Window() override;
  [[nodiscard]] const PanelCommands* Commands() const override { return &commands_; }
  void Build() override;
  void Save() override;
  void Clear() override;
  void Recaption(const Messages& messages) override;

  // Asks for a pattern, searches the whole image, adds the hits to the information text and lists them.
  void Search_Click();

 private:
  Main& main_;
  wxWindow* window_;
  PanelCommands commands_;
};

}  // namespace tarvelo
