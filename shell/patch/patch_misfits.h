// What of a patch does not fit the open image, as a list for the user.
#pragma once

#include <string>
#include <vector>

#include "core/table.h"
#include "patch/patch_apply.h"
#include "resources/messages.h"

namespace tarvelo {

class PatchMisfits {
 public:
  static constexpr std::size_t mostListed = 1000000;

  // The patch, its check and the image must outlive the object.
  PatchMisfits(const ReadPatch& patch, const PatchCheck& check, const Fullflash& image,
               const Messages& messages);

  // How many lines do not fit, can be applied, resp. were applied already.
  [[nodiscard]] std::size_t Count() const { return count_; }
  [[nodiscard]] std::size_t Fitting() const { return fitting_; }
  [[nodiscard]] std::size_t Applied() const { return applied_; }
  // These numbers in words, a line each.
  [[nodiscard]] std::string Summary() const;

  // The lines that do not fit, in their order, as far as they are listed. A row is made when it is asked
  // for; long bytes are shortened in it.
  [[nodiscard]] std::size_t Listed() const { return listed_.size(); }
  [[nodiscard]] std::vector<std::string> Captions() const;
  [[nodiscard]] Table::Row Row(std::size_t number) const;

 private:
  struct Misfit {
    std::size_t line;
    std::size_t index;  // in the patch's invalid lines, resp. its changes
    bool isInvalid;
  };

  void List();
  [[nodiscard]] Table::Row InvalidRow(const InvalidPatchLine& invalid) const;
  [[nodiscard]] Table::Row ChangeRow(std::size_t index) const;
  [[nodiscard]] std::string LineText(std::size_t line) const;
  [[nodiscard]] std::string Msg(Text text) const { return std::string(messages_.Msg(text)); }

  const ReadPatch& patch_;
  const PatchCheck& check_;
  const Fullflash& image_;
  Messages messages_;
  std::size_t fitting_;
  std::size_t applied_;
  std::size_t count_;
  std::vector<Misfit> listed_;
};

}  // namespace tarvelo
