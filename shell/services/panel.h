// One view of the open fullflash. The main window shows one panel at a time.
#pragma once

#include "resources/texts.h"

class wxWindow;

namespace tarvelo {

class Messages;
class PanelCommands;

// What a panel is to the main window.
struct PanelTraits {
  int menuEntry;                                // the id that shows it
  Text name;                                    // "Tarvelo - Info"
  Text saveTextCaption = Text::SaveListAsText;  // what SaveText is called while the panel is visible
};

class Panel {
 public:
  explicit Panel(PanelTraits traits) : traits_(traits) {}
  virtual ~Panel() = default;
  Panel(const Panel&) = delete;
  Panel& operator=(const Panel&) = delete;

  [[nodiscard]] const PanelTraits& Traits() const { return traits_; }

  // Its window, a child of the main window.
  [[nodiscard]] virtual wxWindow& Window() = 0;

  // Its menu; null for a panel without commands of its own.
  [[nodiscard]] virtual const PanelCommands* Commands() { return nullptr; }

  // What takes the keyboard when it is shown.
  [[nodiscard]] virtual wxWindow& FirstFocus() { return Window(); }

  // Makes what it shows. Called each time before it becomes visible; the panel decides what there is to do.
  virtual void Build() = 0;
  // Writes what it shows to a file beside the dump and tells the user.
  virtual void Save() = 0;
  // Empties it: the document is closed.
  virtual void Clear() = 0;
  // Puts its captions in a language.
  virtual void Recaption(const Messages& messages) = 0;

 private:
  PanelTraits traits_;
};

}  // namespace tarvelo
