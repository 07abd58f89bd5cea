// The commands that open, close and save dumps.
#pragma once

#include <filesystem>
#include <functional>
#include <string>

#include "demo/demo_image.h"
#include "shell/services/workbench.h"
#include "shell/settings/recent_files.h"

namespace tarvelo {

class InfoPanel;
class Menus;
class PanelStack;

class DumpCommands {
 public:
  // All must outlive the object. Calls `changed` after a document was opened or closed.
  DumpCommands(Workbench& bench, PanelStack& panels, Menus& menus, InfoPanel& info,
               std::function<void()> changed);

  // Closes the document and opens a dump: identifies it, writes the summary, shows the Info panel. If it
  // cannot be opened, the program says why and no document is open. A patch is shown in the Patch panel
  // instead, for the open dump or else for the one of the same name beside it.
  void OpenF(const std::filesystem::path& path);
  void CloseFF();
  // OpenF for a file that the user chose: asks about unsaved data first.
  void OpenChosen(const std::filesystem::path& path);
  // Opens a file named on the command line.
  void OpenNamed(const std::string& name);
  // Writes a demonstration into a folder, opens it and tells the user where it is.
  void OpenDemonstration(const std::filesystem::path& folder, DemoKind kind);

  // Asks about unsaved patch data, if any. True means: do not continue.
  [[nodiscard]] bool WasChanged();

  void OpenFF_Click();
  void OpenRecent(std::size_t index);
  // Opens the dump that was open when the program last ended, at the panel and place that were shown.
  void Continue_Click();
  void Save_Click();
  void SaveAs_Click();

  [[nodiscard]] RecentFiles& Recent() { return recent_; }
  // Stores the recent files, and where the user is.
  void StoreHistory(Settings& settings) const;

 private:
  void OpenPatch(const std::filesystem::path& path);
  // Reads and identifies a dump and writes the summary. False if the dump cannot be read or is empty.
  bool GetInfo(const std::filesystem::path& path);
  void ReadNames();
  void ShowModel();
  void SaveTo(const std::filesystem::path& path);

  Workbench& bench_;
  PanelStack& panels_;
  Menus& menus_;
  InfoPanel& info_;
  std::function<void()> changed_;
  RecentFiles recent_;
  Document::Watch watch_;
};

}  // namespace tarvelo
