// The panel of any explorer: its list, updated when the document changes, and the commands common to all
// explorers. Explorers that offer more derive their panels from it.
#pragma once

#include <functional>
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

  // Searches if the image has changed since the last search, and every time while the list is empty. The
  // first search of a document adds lines to the information text.
  void Build() override;
  void Clear() override;
  void Recaption(const Messages& messages) override;

  // The commands. Those that need a chosen row do nothing without one.
  void OpenData_Click();
  void OpenEntry_Click();
  // Switches the listing of deleted records on or off.
  void ShowDel_Click();

  // The listed findings; null before the first search and after a failed one.
  [[nodiscard]] const Findings* Found() const { return found_ ? &*found_ : nullptr; }
  // Makes a record the chosen one, and lists deleted ones if it is one of them. Call Build first.
  void ShowRecord(std::size_t record);
  [[nodiscard]] const Explorer& What() const { return explorer_; }
  [[nodiscard]] std::optional<std::size_t> Figure() const override;

  // The record of the chosen row.
  [[nodiscard]] std::optional<std::size_t> ChosenRecord() const;

 protected:
  // What a panel adds to the common commands, by group.
  struct OwnCommands {
    std::vector<PanelCommand> first;  // before all others
    std::vector<PanelCommand> open;   // beside those that open bytes
    std::vector<PanelCommand> copy;   // beside those that copy
    std::vector<PanelCommand> files;  // a separate group
    std::vector<PanelCommand> last;   // after all others
    int defaultId = 0;                // run by a double click; 0: OpenData
    Text search = Text::Search;       // the caption of Find
  };
  [[nodiscard]] virtual OwnCommands Own() { return {}; }

  // Called when the list was replaced: by other findings, or by none. `isNew`: by the first findings of a
  // document.
  virtual void ListChanged(bool isNew) { (void)isNew; }
  // Called when a row was chosen, by the user or by the program.
  virtual void RecordChosen(std::size_t record) { (void)record; }
  // Whether the user sees the findings. If so, the list follows changes at once.
  [[nodiscard]] virtual bool IsSeen() const { return bench_.frame.IsVisible(*this); }
  // Whether the list may change now. If not, a change waits for the next Build.
  [[nodiscard]] virtual bool CanChange() const { return true; }

  // Which records have rows, of those that would otherwise have one; empty: all. Called whenever the list is
  // made, with the new findings in Found.
  [[nodiscard]] virtual std::function<bool(std::size_t record)> Narrowing() { return {}; }
  // Rebuilds the list after Narrowing has changed. The chosen record stays chosen; if it is no longer
  // listed, the next one is chosen.
  void ListAgain();
  [[nodiscard]] bool ShowsDeleted() const { return showDeleted_; }

  // Selects the row of a record, or the next row if the record is not listed. Clears a filter that hides it
  // unless told to keep the filter; then selects nothing.
  void SelectRecord(std::size_t record, bool keepFilter = false);
  // The records of all selected rows, in the order on the screen.
  [[nodiscard]] std::vector<std::size_t> ChosenRecords() const;
  // True while the program, not the user, is choosing a row.
  [[nodiscard]] bool IsSelecting() const { return isSelecting_; }

  [[nodiscard]] std::optional<Region> ChosenRegion() const override;
  [[nodiscard]] PanelCommands MakeCommands() override;
  [[nodiscard]] std::optional<unsigned> SearchedColumn() const override { return explorer_.searchedColumn; }

 private:
  void Search();
  void ShowList(bool keepView);
  [[nodiscard]] std::optional<Item> ChosenItem() const;

  const Explorer& explorer_;
  std::optional<Findings> found_;
  Listing listing_;
  Document::Watch watch_;
  Document::Watch nameWatch_;
  bool isStale_ = false;      // the image has changed since the search
  bool isAnnounced_ = false;  // the information text has this document's lines
  bool showDeleted_ = false;
  bool isSelecting_ = false;
};

}  // namespace tarvelo
