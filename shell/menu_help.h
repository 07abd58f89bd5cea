// What the status bar says about a menu entry while it is highlighted.
#pragma once

namespace tarvelo {

// The message that explains a command of MenuId, of the bar or of a panel; 0 for what is no command.
[[nodiscard]] int HelpOf(int id);

}  // namespace tarvelo
