// Finds the cases of switches.
//
// A compiled switch checks a number, takes a word from a table of offsets in the segment, and jumps there:
//
//   CMP   Rn, #cases - 1
//   JMPR  cc_UGT, default      or JMPA
//   SHL   Rn, #1
//   ADD   Rn, #table
//   MOV   Rm, [Rn]             an EXTP or EXTS with a number may precede it
//   JMPI  cc_UC, [Rm]
//
// The code of one of the cases follows the JMPI at once. The table is elsewhere, and a DPP gives its page.
// The page is one that the program loads into this DPP somewhere, the DPP's own number as after reset, or any
// page where the table's words are offsets of such cases.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "core/fullflash.h"

namespace tarvelo {

class SwitchTables {
 public:
  // Searches the image for the pages that the program loads into its DPPs.
  explicit SwitchTables(const Fullflash& image);

  // The offsets of the cases of the switch whose JMPI is at `jump`, none below `first`. Empty if it is none
  // of this form or its table cannot be found. The result is valid until the next call.
  [[nodiscard]] const std::vector<Offset>& Cases(Offset jump, Offset first);

 private:
  struct Form;

  [[nodiscard]] bool ReadForm(Offset jump, Form& form) const;
  [[nodiscard]] int ReadCount(Offset end, int reg) const;
  [[nodiscard]] bool ReadAt(std::uint32_t address, const Form& form);
  void ReadThroughDpp(const Form& form);
  [[nodiscard]] bool IsInImage(std::uint32_t page) const;

  const Fullflash& image_;
  std::array<std::vector<std::uint16_t>, 4> pages_;  // by DPP
  std::int64_t reads_;                               // of words that are left, so that the time is limited
  std::vector<Offset> cases_;
};

}  // namespace tarvelo
