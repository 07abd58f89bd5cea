// One view of the open fullflash. The main window shows one panel at a time.
#pragma once

class wxWindow;

namespace tarvelo {

class Messages;
class PanelCommands;

class Panel {
 public:
  virtual ~Panel() = default;

  // The menu entry that shows it, and the message of its name ("Tarvelo - Info").
  [[nodiscard]] virtual int MenuEntry() const = 0;
  [[nodiscard]] virtual int Name() const = 0;
  // The message that SaveText shows while the panel is visible.
  [[nodiscard]] virtual int SaveTextCaption() const = 0;

  // Its window, a child of the main window.
  [[nodiscard]] virtual wxWindow& Window() = 0;

  // Its menu; null for a panel without commands of its own.
  [[nodiscard]] virtual const PanelCommands* Commands() const { return nullptr; }

  // What takes the keyboard when it is shown.
  [[nodiscard]] virtual wxWindow& FirstFocus() { return Window(); }

  // Makes what it shows. Called each time before it becomes visible; it decides what is left to do.
  virtual void Build() = 0;
  // Writes what it shows to a file beside the dump and tells the user.
  virtual void Save() = 0;
  // Empties it: the document is closed.
  virtual void Clear() = 0;
  // Bytes of the image were changed, by whichever panel.
  virtual void ImageChanged() {}
  // Puts its captions in a language.
  virtual void Recaption(const Messages& messages) = 0;
};

}  // namespace tarvelo
