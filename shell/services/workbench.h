// Everything that panels and commands work with.
#pragma once

#include <wx/gdicmn.h>
#include <wx/string.h>

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

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

// The dump that the open one was compared with.
struct OtherDump {
  std::shared_ptr<const Fullflash> image;  // null: none
  Offset shift = 0;                        // its offset minus the open one's of the same byte
  std::filesystem::path path;
};

// What panels and commands may ask of the window around them.
class Frame {
 public:
  virtual ~Frame() = default;

  // The parent of the panels' windows.
  [[nodiscard]] virtual wxWindow& Parent() = 0;

  // Runs the command with an id (ids.h).
  virtual void Run(int id) = 0;
  // Shows the context menu of the visible panel at a place on the screen, by default at the mouse, and runs
  // the chosen command.
  virtual void PopUpCommands(const wxPoint& place = wxDefaultPosition) = 0;
  // Makes a window accept dropped dumps and patch files.
  virtual void AcceptDrops(wxWindow& window) = 0;

  virtual void ShowPanel(Panel& panel) = 0;
  // Rebuilds a panel's menu, because entries came or went.
  virtual void RenewMenu(Panel& panel) = 0;
  [[nodiscard]] virtual bool IsVisible(const Panel& panel) const = 0;
  // Shows a region of the image in the user's hex editor, or in the hex view if none is configured. Tells the
  // user if the region does not start within the image.
  virtual void ShowBl(Offset start, Offset size) = 0;
  // Shows a region in the hex view, even if a hex editor is configured.
  virtual void ShowHex(Offset start, Offset size) = 0;
  // Shows a region as code, and the places that refer to an offset.
  virtual void ShowCode(Offset start, Offset size) = 0;
  virtual void ShowReferences(Offset target) = 0;
  // Shows the list of functions, at the one that has an offset.
  virtual void ShowFunctions(Offset offset) = 0;
  // Shows the line of the patch that changes the byte at an offset; tells the user if there is none.
  virtual void ShowInPatch(Offset offset) = 0;
  // Searches the whole image for a pattern (patch/pattern.h) and lists its hits.
  virtual void ShowHits(const std::string& pattern) = 0;
  // Shows all that is known about a place.
  virtual void ShowWhatLies(Offset offset) = 0;
  // Goes to a region in the hex view if that is visible.
  virtual void FollowInHex(Offset start, Offset size) = 0;

  // The dump that the comparison shows.
  [[nodiscard]] virtual OtherDump Other() const = 0;
  // Opens a dump in place of the open one. Asks about unsaved data first.
  virtual void OpenDump(const std::filesystem::path& path) = 0;
  // Opens a dump in a window of its own, and a patch file in it, if one is given.
  virtual void OpenInNewWindow(const std::filesystem::path& dump,
                               const std::filesystem::path& patch = {}) = 0;

  // Adds lines to the information text. Each must end with a line feed.
  virtual void AddInformation(const std::string& lines) = 0;
  // Adds a named piece of information and announces it.
  virtual void AddInformation(const std::string& name, const std::string& body) = 0;
  // Asks for a name and adds changes of this many bytes to the patch document. The changes are in order and
  // their old bytes are those of the file that was opened; there are `all` of them to choose from. If the
  // bytes are too many, tells the user so in the name of the command, without making the changes.
  virtual void AddPatch(Text command, Offset changedBytes, std::size_t all,
                        const std::function<std::vector<Change>()>& makeChanges) = 0;
  // Shows a patch file in the Patch panel. Asks first if unsaved patch data would be lost.
  virtual void OpenPatch(const std::filesystem::path& file) = 0;
};

struct Workbench {
  Document& document;
  const Messages& texts;  // in the current language
  Settings& settings;
  Talk& talk;
  StatusBar& status;
  Beeper& sound;
  Launcher& programs;
  Frame& frame;
};

}  // namespace tarvelo
