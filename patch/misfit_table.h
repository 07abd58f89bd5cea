// The lines of a patch that do not fit an image, as a list for the user.
#pragma once

#include <string>
#include <vector>

#include "core/table.h"
#include "patch/misfits.h"
#include "resources/messages.h"
#include "resources/texts.h"

namespace tarvelo {

// What the list calls what is to be done: applying a patch, unless it says otherwise.
struct MisfitWords {
  Text title = Text::ApplyPatchFile;
  Text accept = Text::ApplyFittingLines;
  Text leave = Text::DontApply;
  Text applied = Text::AppliedLinesLabel;  // of the number of lines that need nothing
};

class MisfitTable {
 public:
  static constexpr std::size_t mostListed = 1000000;

  // The patch, its check and the image must outlive the table.
  MisfitTable(const ReadPatch& patch, const PatchCheck& check, const Fullflash& image,
              const Messages& messages, const MisfitWords& words = {});

  [[nodiscard]] const MisfitWords& Words() const { return words_; }

  // The number of lines that do not fit, that can be applied, and that were already applied.
  [[nodiscard]] std::size_t Count() const { return count_; }
  [[nodiscard]] std::size_t Fitting() const { return fitting_; }
  [[nodiscard]] std::size_t Applied() const { return applied_; }
  // These numbers in words, one line each.
  [[nodiscard]] std::string Summary() const;

  // The patch's header, one line each; empty if it has none.
  [[nodiscard]] std::string Header() const;

  // One row per line that does not fit, up to mostListed, in the columns Line, Offset, Phone address,
  // Expected and Found. Long runs of bytes are shortened. The table must outlive the rows.
  [[nodiscard]] TableRows Rows() const;

 private:
  [[nodiscard]] Table::Row InvalidRow(const InvalidPatchLine& invalid) const;
  [[nodiscard]] Table::Row ChangeRow(std::size_t index) const;
  [[nodiscard]] std::string LineText(std::size_t line) const;
  [[nodiscard]] std::string Msg(Text text) const { return std::string(messages_.Msg(text)); }

  const ReadPatch& patch_;
  const PatchCheck& check_;
  const Fullflash& image_;
  Messages messages_;
  MisfitWords words_;
  std::size_t fitting_;
  std::size_t applied_;
  std::size_t count_;
  std::vector<Misfit> listed_;
};

}  // namespace tarvelo
