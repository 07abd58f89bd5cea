// The window that shows one EEPROM block: what its header says, the other generations of its number, its
// bytes, and what the text decoders read in them. It stays open beside the list.
#pragma once

#include <wx/dialog.h>

#include <array>
#include <functional>
#include <optional>
#include <vector>

#include "eeprom/block_report.h"
#include "eeprom/eeprom_explorer.h"
#include "resources/texts.h"

class wxButton;
class wxDataViewListCtrl;
class wxSplitterWindow;
class wxStaticText;
class wxTextCtrl;

namespace tarvelo {

struct Workbench;
class Messages;

class BlockView final : public wxDialog {
 public:
  enum Fact : std::uint8_t { Description, State, PhoneAddress, Size, V, DataOffset, HeaderPosition };
  static constexpr std::size_t facts = HeaderPosition + 1;

  // `blocks` gives those that are listed now.
  BlockView(Workbench& bench, std::function<const EepromFindings&()> blocks);

  // Shows a record, by its index, and the window, if it is closed.
  void ShowBlock(std::size_t record);
  // The image was searched again: shows the block of the same header as it is now, or closes the window.
  void BlocksChanged();
  // Closes the window and forgets the block: its image is gone.
  void Clear();
  void Recaption();

  // The record that is shown; nothing after Clear.
  [[nodiscard]] std::optional<std::size_t> Shown() const { return shown_; }

  // Lets the decoders read from a byte of the dump on.
  void ReadFrom(std::size_t byte);
  // The same for the byte at the caret of the dump.
  void ReadFromCaret();

  // The blocks of the next higher and the next lower number, if there are any.
  void Next_Click();
  void Previous_Click();
  // Shows one of the other generations instead.
  void Generation_Click(std::size_t row);
  void HexView_Click();

  [[nodiscard]] wxString FactText(Fact fact) const;
  [[nodiscard]] wxDataViewListCtrl& Generations() { return *generations_; }
  [[nodiscard]] wxDataViewListCtrl& Readings() { return *readings_; }
  [[nodiscard]] wxTextCtrl& Dump() { return *dump_; }

 private:
  wxSizer* MakeFacts();
  wxSizer* MakeButtons();
  void MakeSheets();
  void Bind();
  void Fill(std::size_t record);
  void FitSash();
  void ShowFacts();
  void ShowGenerations();
  void ShowDump();
  void ShowReadings();
  [[nodiscard]] wxString DifferenceText(const BlockDifference& difference) const;
  [[nodiscard]] wxString Msg(Text text) const;
  [[nodiscard]] const BlockStore& Store() const { return blocks_().store; }

  Workbench& bench_;
  std::function<const EepromFindings&()> blocks_;
  std::optional<std::size_t> shown_;
  BlockReport report_;
  std::size_t start_ = 0;  // of the decoders, an index of the report's bytes
  std::array<wxStaticText*, facts> labels_{};
  std::array<wxStaticText*, facts> values_{};
  wxStaticText* generationsLabel_;
  wxDataViewListCtrl* generations_;
  wxSplitterWindow* sheets_;
  wxTextCtrl* dump_;
  wxStaticText* readingsLabel_;
  wxDataViewListCtrl* readings_;
  wxButton* previous_;
  wxButton* next_;
  wxButton* hexView_;
  wxButton* close_;
};

}  // namespace tarvelo
