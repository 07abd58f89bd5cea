#include "versions/code_versions.h"

#include <future>

namespace tarvelo {
namespace {

CodeUnits UnitsIn(const Fullflash& image, Progress& progress) {
  return GetCodeUnits(image, GetFunctions(image, progress));
}

}  // namespace

CodeVersions::CodeVersions(const Fullflash& old, const Fullflash& now, Progress& progress,
                           const FunctionList* oldFunctions)
    : old_(old),
      now_(now),
      units_(UnitsOf(old, now, progress, oldFunctions)),
      pairing_(units_.old, old.PhoneAddress(0), units_.now, now.PhoneAddress(0), progress) {}

// One image in a second thread: only the other one shows its progress.
CodeVersions::Both CodeVersions::UnitsOf(const Fullflash& old, const Fullflash& now, Progress& progress,
                                         const FunctionList* oldFunctions) {
  auto first = std::async(std::launch::async, [&] {
    NoProgress none;
    return oldFunctions ? GetCodeUnits(old, *oldFunctions) : UnitsIn(old, none);
  });
  CodeUnits second = UnitsIn(now, progress);
  return {first.get(), std::move(second)};
}

}  // namespace tarvelo
