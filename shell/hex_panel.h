// The hex view: the bytes of the open dump.
#pragma once

#include <string>

#include "shell/panel.h"
#include "shell/panel_commands.h"
#include "text/bytes.h"

namespace tarvelo {

class Main;

class HexPanel final : public Panel {
 public:
  explicit HexPanel(Main& main);

  [[nodiscard]] int MenuEntry() const override;
  [[nodiscard]] int Name() const override { return 228; }
  [[nodiscard]] int SaveTextCaption() const override { return 5; }
  [[nodiscard]] wxWindow& Window() override;
  [[nodiscard]] const PanelCommands* Commands() const override { return &commands_; }
  void Build() override;
  void Save() override;
  void Clear() override;
  void Recaption(const Messages& messages) override;

  // Selects a region and scrolls to it; the caller has made sure that it begins within the image. What
  // lies behind the image's end is left out; a size of 0 only puts the cursor there.
  void Go(Offset start, Offset size);

 private:
  Main& main_;
  wxWindow* window_;
  PanelCommands commands_;
};

}  // namespace tarvelo
