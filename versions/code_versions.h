// The code of two versions of a firmware, and which of the one is which of the other.
#pragma once

#include "core/fullflash.h"
#include "core/progress.h"
#include "versions/code_pairing.h"
#include "versions/code_units.h"

namespace tarvelo {

class CodeVersions {
 public:
  // Finds and pairs the code. Both images must outlive the object. The functions of one, if they are known
  // already, need not be found again. An image of more than 16 MiB has no code.
  CodeVersions(const Fullflash& old, const Fullflash& now, Progress& progress,
               const FunctionList* oldFunctions = nullptr);
  CodeVersions(const CodeVersions&) = delete;
  CodeVersions& operator=(const CodeVersions&) = delete;

  [[nodiscard]] const Fullflash& Old() const { return old_; }
  [[nodiscard]] const Fullflash& New() const { return now_; }
  [[nodiscard]] const CodePairing& Pairing() const { return pairing_; }

 private:
  struct Both {
    CodeUnits old, now;
  };
  static Both UnitsOf(const Fullflash& old, const Fullflash& now, Progress& progress,
                      const FunctionList* oldFunctions);

  const Fullflash& old_;
  const Fullflash& now_;
  Both units_;
  CodePairing pairing_;
};

}  // namespace tarvelo
