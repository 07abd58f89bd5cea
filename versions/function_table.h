// The compared functions of two firmware versions, and one of them side by side, as lists for the user.
#pragma once

#include <array>
#include <span>
#include <string>
#include <vector>

#include "core/names.h"
#include "core/table.h"
#include "resources/messages.h"
#include "versions/code_compare.h"
#include "versions/code_sides.h"

namespace tarvelo {

// One row per function, in the columns State, Offset, Address, Size, New offset, New address, New size,
// Edited, Constants, Name and New name. Cells of what a version lacks are empty. Everything but the messages
// must outlive the rows.
[[nodiscard]] TableRows FunctionRows(std::span<const ComparedFunction> functions,
                                     const CodeVersions& versions, const Names& oldNames,
                                     const Names& newNames, const Messages& messages = Messages());

// "same", "moved", ...
[[nodiscard]] std::string StateText(FunctionState state, const Messages& messages = Messages());

// How many functions are in each state, by its number.
[[nodiscard]] std::array<int, functionStates> CountStates(std::span<const ComparedFunction> functions);

// One row per pair of instructions, in the columns Offset, Instruction, a mark, New offset and Instruction.
// The mark of the same ones is empty, "~" stands for an address that moved, "?" for a constant that differs,
// "!" for an edited one; their rows are marked, too. `versions` must outlive the rows.
[[nodiscard]] TableRows SideRows(std::vector<CodeSide> sides, const CodeVersions& versions,
                                 const Messages& messages);

}  // namespace tarvelo
