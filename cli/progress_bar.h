// The progress bar of the command line, on standard error.
#pragma once

#include <memory>

#include "core/progress.h"

namespace tarvelo::cli {

// A bar if standard error is a terminal, otherwise nothing.
[[nodiscard]] std::unique_ptr<Progress> TerminalProgress();

}  // namespace tarvelo::cli
