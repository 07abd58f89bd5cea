// What panels and commands are given to work with.
#pragma once

#include <wx/string.h>

#include <functional>
#include <string>

#include "document/document.h"
#include "resources/messages.h"
#include "resources/texts.h"

class wxWindow;

namespace tarvelo {

class Beeper;
class Launcher;
class Panel;
class Settings;
class StatusBar;
class Talk;

// What they may ask of the window around them.
class Frame {
 public:
  virtual ~Frame() = default;

  // The parent of their windows.
  [[nodiscard]] virtual wxWindow& Parent() = 0;

  // Runs the command of an id (ids.h).
  virtual void Run(int id) = 0;
  // Shows the context menu of the visible panel, and runs what is chosen.
  virtual void PopUpCommands() = 0;
  // Lets dumps and patch files be dropped on a window.
  virtual void AcceptDrops(wxWindow& window) = 0;

  virtual void ShowPanel(Panel& panel) = 0;
  [[nodiscard]] virtual bool IsVisible(const Panel& panel) const = 0;
  // Shows a region of the image in the user's hex editor, or in the hex view where he has none.
  // Says so where it does not begin within the image.
  virtual void ShowBl(Offset start, Offset size) = 0;
  // Shows a region in the hex view, whatever the hex editor.
  virtual void ShowHex(Offset start, Offset size) = 0;
  // Goes to a region in the hex view where that is visible already.
  virtual void FollowInHex(Offset start, Offset size) = 0;

  // Adds lines to the information text, each ended by a line feed.
  virtual void AddInformation(const std::string& lines) = 0;
  // Adds a named piece of information and announces it.
  virtual void AddInformation(const std::string& name, const std::string& body) = 0;
  // Asks for a name and adds a patch that changes so many bytes to the patch document, in the name of a
  // command. Too many are refused; then no body is made.
  virtual void AddPatch(Text command, Offset changedBytes, const std::function<std::string()>& makeBody) = 0;
};

struct Workbench {
  Document& document;
  const Messages& texts;  // in the current language
  const Settings& settings;
  Talk& talk;
  StatusBar& status;
  Beeper& sound;
  Launcher& programs;
  Frame& frame;
};

}  // namespace tarvelo
