// The check of a patch document in words.
#pragma once

#include <string>

#include "patch/document_check.h"
#include "resources/messages.h"

namespace tarvelo {

// The number of lines with each verdict, the worst first and without those that have
// none: "differs 1    fits 12".
[[nodiscard]] std::string TotalsText(const DocumentCheck& check, const Messages& messages);

// What there is to say about a line: its verdict, the other line, and the bytes found if it does not fit.
[[nodiscard]] std::string LineText(const DocumentCheck& check, std::size_t line, const Messages& messages);

// The lines that contradict others by place, at most `most`, a line each: "000010    12: 00 01".
[[nodiscard]] std::string ContradictionsText(const DocumentCheck& check, std::size_t most);

}  // namespace tarvelo
