// A view of the open fullflash. The main window shows one panel at a time.
#pragma once

#include <cstddef>
#include <optional>

#include "resources/texts.h"
#include "text/bytes.h"

class wxWindow;

namespace tarvelo {

class Messages;
class PanelCommands;

// A panel's place in the main window.
struct PanelTraits {
  int menuEntry;                                // the id of the menu entry that shows it
  Text name;                                    // "Tarvelo - Info"
  Text saveTextCaption = Text::SaveListAsText;  // SaveText's caption while the panel is visible
};

class Panel {
 public:
  explicit Panel(PanelTraits traits) : traits_(traits) {}
  virtual ~Panel() = default;
  Panel(const Panel&) = delete;
  Panel& operator=(const Panel&) = delete;

  [[nodiscard]] const PanelTraits& Traits() const { return traits_; }

  // The panel's window, a child of the main window.
  [[nodiscard]] virtual wxWindow& Window() = 0;

  // Its menu; null for a panel without commands of its own.
  [[nodiscard]] virtual const PanelCommands* Commands() { return nullptr; }

  // The window that gets the keyboard focus when the panel is shown.
  [[nodiscard]] virtual wxWindow& FirstFocus() { return Window(); }

  // Where the user is in the panel, for going back and forth; what the number counts is the panel's matter.
  // Return goes there, if that place still exists.
  [[nodiscard]] virtual Offset Here() const { return 0; }
  virtual void Return(Offset here) { (void)here; }

  // How many things the panel has, if that is known; never searches.
  [[nodiscard]] virtual std::optional<std::size_t> Figure() const { return {}; }
  // Puts the caret into the panel's own line for going to a place. False if it has none.
  virtual bool StartGoTo() { return false; }

  // Prepares the panel's content. Called each time before the panel becomes visible; the panel decides what
  // needs to be done.
  virtual void Build() = 0;
  // Writes the panel's content to a file beside the dump and tells the user.
  virtual void Save() = 0;
  // Empties the panel: the document is closed.
  virtual void Clear() = 0;
  // Switches the panel's captions to a language.
  virtual void Recaption(const Messages& messages) = 0;

 private:
  PanelTraits traits_;
};

}  // namespace tarvelo
