// The panel of any explorer: its list, kept in step with the document, and the commands that all have.
// Explorers that offer more derive theirs from it.
#pragma once

#include <optional>

#include "core/explorer.h"
#include "document/explorers.h"
#include "shell/list/list_panel.h"

namespace tarvelo {

// The id of the menu entry that shows an explorer's panel.
[[nodiscard]] int PanelId(const Explorer& explorer);

class ExplorerPanel : public ListPanel {
 public:
  ExplorerPanel(Workbench& bench, const Explorer& explorer, wxWindow* window = nullptr,
                wxWindow* listParent = nullptr);

  // Searches where the image was not searched as it is now, and again while nothing is listed. What is
  // found first in a document adds lines to the information text.
  void Build() override;
  void Clear() override;
  void Recaption(const Messages& messages) override;

  // The commands. Those that need a chosen row do nothing without one.
  void OpenData_Click();
  void OpenEntry_Click();
  // Lists deleted things too, or no more.
  void ShowDel_Click();

  // What is listed; null before the first search and after a failed one.
  [[nodiscard]] const Findings* Found() const { return found_ ? &*found_ : nullptr; }
  // The record of the chosen row.
  [[nodiscard]] std::optional<std::size_t> ChosenRecord() const;

 protected:
  // What a panel adds to the common commands, group by group.
  struct OwnCommands {
    std::vector<PanelCommand> first;      // in front of all others
    std::vector<PanelCommand> open;       // beside those that open bytes
    std::vector<PanelCommand> copy;       // beside those that copy
    std::vector<PanelCommand> files;      // a group of their own
    std::vector<PanelCommand> last;       // behind all others
    int defaultId = 0;                    // of the double click; 0: opens the data
    Text search = Text::AskSearchString;  // the caption of Find
  };
  [[nodiscard]] virtual OwnCommands Own() { return {}; }

  // The list is another one: other findings, or none. `isNew`: of a document not searched before.
  virtual void ListChanged(bool isNew) { (void)isNew; }
  // A row was chosen, by the user or by the program.
  virtual void RecordChosen(std::size_t record) { (void)record; }
  // Whether somebody sees what is listed, so that the list follows changes at once.
  [[nodiscard]] virtual bool IsSeen() const { return bench_.frame.IsVisible(*this); }
  // Whether the list may change now; a change that comes meanwhile waits for the next Build.
  [[nodiscard]] virtual bool CanChange() const { return true; }

  // Selects the row of a record; where it has none, the next one.
  void SelectRecord(std::size_t record);
  // Whether the program, not the user, is choosing a row.
  [[nodiscard]] bool IsSelecting() const { return isSelecting_; }

  [[nodiscard]] TableRows Rows() const override { return listing_.rows; }
  [[nodiscard]] std::optional<Region> ChosenRegion() const override;
  [[nodiscard]] PanelCommands MakeCommands() override;
  [[nodiscard]] std::optional<unsigned> SearchedColumn() const override { return explorer_.searchedColumn; }

 private:
  void Search();
  void ShowList();
  [[nodiscard]] std::optional<Item> ChosenItem() const;

  const Explorer& explorer_;
  std::optional<Findings> found_;
  Listing listing_;
  Document::Watch watch_;
  bool isStale_ = false;      // the image was changed since it was searched
  bool isAnnounced_ = false;  // the information text has the lines of this document
  bool showDeleted_ = false;
  bool isSelecting_ = false;
};

}  // namespace tarvelo
