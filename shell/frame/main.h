// The main window: owns the open document and the panels, and routes commands to them.
#pragma once

#include <wx/frame.h>

#include <functional>
#include <map>
#include <memory>
#include <span>

#include "core/table.h"
#include "resources/messages.h"
#include "shell/services/dialogs.h"
#include "shell/services/document.h"
#include "shell/services/external_tools.h"
#include "shell/frame/menus.h"
#include "shell/platform/beeper.h"
#include "shell/platform/launcher.h"
#include "shell/base/recent_files.h"
#include "shell/base/settings.h"
#include "shell/services/status_bar.h"

namespace tarvelo {

class Calc166;
class ComparePanel;
class HexPanel;
class HitsPanel;
class InfoPanel;
class Panel;
class PatchPanel;

// A line break, as files have it; texts on the screen have line feeds.
inline constexpr char CrLf[] = "\r\n";

// What the window needs from outside. The tests put their own in its place.
struct Surroundings {
  Settings settings;
  std::unique_ptr<Beeper> beeper = SystemBeeper();
  std::unique_ptr<Launcher> launcher = SystemLauncher();
  std::unique_ptr<Dialogs> dialogs = nullptr;  // none: the real ones
  std::filesystem::path documents = {};        // empty: the user's own folder
};

class Main final : public wxFrame {
 public:
  explicit Main(Surroundings surroundings);
  ~Main() override;

  // --- the document ---

  [[nodiscard]] const Document& Open() const { return document_; }

  // Closes the document and opens a dump: identifies it, writes the summary, shows the Info panel.
  // What stands against it is told to the user, and no document is open then.
  void OpenF(const std::filesystem::path& path);
  void CloseFF();

  // OpenF for a file that the user chose: asks about unsaved data first.
  void OpenChosen(const std::filesystem::path& path);

  // Opens a file named on the command line, at once or as soon as the window stands in its place.
  void OpenNamed(const std::string& name);
  void OpenWhenShown(const std::string& name);

  // Changes bytes of the image, as one step. From the first change on the status bar shows "F", until the
  // document is closed. All panels are told. Throws std::out_of_range, and changes nothing, where the
  // bytes do not all lie within the image.
  void WriteImage(Offset offset, Bytes bytes);
  void WriteImage(std::span<const Change> changes);
  // Takes the last step back, resp. does it again. Returns where it was; nothing without such a step.
  std::optional<ImageEdits::Region> UndoImage();
  std::optional<ImageEdits::Region> RedoImage();

  // Asks for a dump with message n as the title. Nothing when the user cancels.
  [[nodiscard]] std::optional<std::filesystem::path> AskForDump(int n, const std::filesystem::path& current);
  // Reads a dump. Where it cannot be read or is empty, the user is told and there is nothing.
  [[nodiscard]] std::optional<Fullflash> ReadDump(const std::filesystem::path& path);

  // Asks about unsaved patch data, if there is any. True means: stop.
  [[nodiscard]] bool WasChanged();

  // --- panels ---

  // Shows a panel, unless it is shown already: builds it, hides all others, titles the window.
  void ShowPanel(Panel& panel);
  void UnVis();
  [[nodiscard]] Panel* Visible() const { return visible_; }
  // The address calculator's window; null while it is closed.
  [[nodiscard]] tarvelo::Calc166* AddressCalculator() const { return calculator_; }
  // Takes over a panel and gives its menu entry the command that shows it.
  void AddPanel(std::unique_ptr<Panel> panel);

  // Writes a list as tab-separated text to the dump's path without extension, "_", the letter and
  // ".txt", and tells the user. Throws FileError.
  void SaveList(const Table& table, char letter);
  void SaveList(const TableRows& table, char letter);

  // Shows a region of the image in the user's hex editor, or in the hex view where he has none. Says so
  // where it does not begin within the image.
  void ShowBl(Offset start, Offset size);
  // Shows a region in the hex view, whatever the hex editor.
  void ShowHex(Offset start, Offset size);

  // --- for the panels ---

  [[nodiscard]] const Messages& Texts() const { return messages_; }
  [[nodiscard]] const Settings& Stored() const { return settings_; }
  [[nodiscard]] StatusBar& Status() { return *status_; }
  // The files opened last, and the folder for what the user has not chosen a place for.
  [[nodiscard]] const RecentFiles& Recent() const { return recent_; }
  [[nodiscard]] std::filesystem::path Documents() const;
  [[nodiscard]] Beeper& Sound() { return *beeper_; }
  [[nodiscard]] Launcher& Programs() { return *launcher_; }
  [[nodiscard]] Dialogs& Boxes() { return *dialogs_; }
  [[nodiscard]] InfoPanel& InfoText() { return *info_; }
  [[nodiscard]] PatchPanel& Patch() { return *patch_; }
  [[nodiscard]] HitsPanel& FoundHits() { return *hits_; }

  // Shows the context menu of the visible panel, and runs what is chosen.
  void PopUpCommands();

  // Says something that needs no answer.
  void Tell(const wxString& text);
  // Says that something was done: a text (or message n), an empty line, the path.
  void Tell(const wxString& text, const std::filesystem::path& path);
  void Tell(int n, const std::filesystem::path& path);
  // Says that something could not be done.
  void Complain(const wxString& text);
  // Says in a box with a title of its own, "Tarvelo - " and this, what was added to a text.
  void Announce(const wxString& title, const wxString& text);
  // Asks for a line of text with message n. Nothing when the user cancels or leaves it empty.
  [[nodiscard]] std::optional<std::string> Ask(int n, const std::string& initial);
  // Asks for a byte pattern. The last one is offered.
  [[nodiscard]] std::optional<std::string> AskPattern();
  // Asks a question. True only for Yes.
  [[nodiscard]] bool Confirm(const wxString& question);
  // Puts a text into the clipboard.
  void Copy(const std::string& text);
  // The text in the clipboard; empty where it holds none.
  [[nodiscard]] std::string CopiedText() const;

  // Runs a command of this name. A fault ends it with a message that names it.
  void RunGuarded(const wxString& name, const std::function<void()>& command);

  // Runs an access to a file. Where it fails the user is told ("Can't open file !" and the path)
  // and the result is true.
  [[nodiscard]] bool fOpenErr(const std::function<void()>& access);

  // Lets dumps and patch files be dropped on a window.
  void AcceptDrops(wxWindow& window);

  // --- languages and commands ---

  // Puts everything in a language: font character set, settings, captions, menu tick.
  void ApplyLang(const Language& language);

  // Runs the command of a menu entry.
  void Run(int id);
  // Enables the menu entries that can be used now.
  void UpdateMenus();

 private:
  using Command = std::function<void()>;

  void DoGiveHelp(const wxString& help, bool show) override;
  void AddCommands();
  void TellFileError(const FileError& error);
  void TellFault(const wxString& command, const std::string& cause);
  void AddPanels();

  bool GetInfo(const std::filesystem::path& path);
  void ImageChanged();

  void OpenFF_Click();
  void Save_Click();
  void SaveTo(const std::filesystem::path& path);
  void SaveAs_Click();
  void SaveText_Click();
  void View_Click();
  void Quillo_Click();
  void Calc166_Menu_Click();
  void Help_Click();
  void About_Click();
  void ExitM_Click();
  void Form_Unload(wxCloseEvent& event);
  // The user logs off or the machine is switched off: asks, resp. keeps what is to be kept.
  void QueryEndSession(wxCloseEvent& event);
  void EndSession(wxCloseEvent& event);
  void StoreSettings();

  [[nodiscard]] wxString Msg(int n) const;
  [[nodiscard]] wxString DumpFilter() const;

  Settings settings_;
  Messages messages_;
  std::unique_ptr<Beeper> beeper_;
  std::unique_ptr<Launcher> launcher_;
  std::unique_ptr<Dialogs> dialogs_;
  ExternalTools tools_;
  std::filesystem::path documents_;
  Document document_;
  RecentFiles recent_;
  std::map<int, Command> commands_;
  std::vector<std::unique_ptr<Panel>> panels_;
  std::unique_ptr<Menus> menus_;
  StatusBar* status_ = nullptr;
  InfoPanel* info_ = nullptr;
  HexPanel* hex_ = nullptr;
  HitsPanel* hits_ = nullptr;
  ComparePanel* compare_ = nullptr;
  PatchPanel* patch_ = nullptr;
  Calc166* calculator_ = nullptr;  // while it is open
  Panel* visible_ = nullptr;
  std::string openWhenIdle_;
  std::string lastPattern_;
};

}  // namespace tarvelo
