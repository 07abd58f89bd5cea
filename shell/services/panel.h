// One view of the open fullflash. The main window shows one panel at a time.
#pragma once

class wxWindow;

namespace tarvelo {

class Messages;
class PanelCommands;

// What a panel is to the main window.
struct PanelTraits {
  int menuEntry;            // of MenuId: shows it
  int name;                 // the message of its name ("Tarvelo - Info")
  int saveTextCaption = 5;  // the message that SaveText shows while the panel is visible
};

class Panel {
 public:
  explicit Panel(PanelTraits traits) : traits_(traits) {}
  virtual ~Panel() = default;

  [[nodiscard]] const PanelTraits& Traits() const { return traits_; }

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

 private:
  PanelTraits traits_;
};

}  // namespace tarvelo
