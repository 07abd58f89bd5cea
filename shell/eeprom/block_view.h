// The window of one EEPROM block: its header, the other generations of its number, its bytes, and the texts
// that the decoders read from them. It stays open beside the list.
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

  // `blocks` returns the blocks that the panel lists.
  BlockView(Workbench& bench, std::function<const EepromFindings&()> blocks);

  // Shows the record with this index. Opens the window if it is closed.
  void ShowBlock(std::size_t record);
  // Call after the image was searched again: shows the block with the same header position, or closes the
  // window if it is gone.
  void BlocksChanged();
  // Closes the window and forgets its block.
  void Clear();
  void Recaption();

  // The record on display; none after Clear.
  [[nodiscard]] std::optional<std::size_t> Shown() const { return shown_; }

  // Makes the decoders read from a byte of the dump on.
  void ReadFrom(std::size_t byte);
  // Makes them read from the byte at the dump's caret on.
  void ReadFromCaret();

  // Show the block with the next higher or next lower number, if any.
  void Next_Click();
  void Previous_Click();
  // Shows one of the other generations.
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
  std::size_t start_ = 0;  // where the decoders start, an index into the report's bytes
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
