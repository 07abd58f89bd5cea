// What a row of code says to a person: the instruction in parts, and what it refers to.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "code/code_rows.h"
#include "code/ext_range.h"
#include "code/functions.h"
#include "code/references.h"
#include "code/register_pairs.h"
#include "core/dump.h"
#include "document/dump_map.h"
#include "resources/messages.h"

namespace tarvelo {

enum class CodeInk : std::uint8_t { Plain, Mnemonic, Register, Constant, Address };

struct CodePart {
  CodeInk ink = CodeInk::Plain;
  std::string text;
};

struct CodeLine {
  std::vector<CodePart> parts;   // of the instruction or the data, or of the heading
  std::string meaning;           // empty: nothing is known
  std::optional<Offset> target;  // the place in the image that it refers to

  // The parts in one text.
  [[nodiscard]] std::string Text() const;
};

// What the reader knows; all must outlive it.
struct CodeSources {
  const Dump* dump = nullptr;
  const CodeRows* rows = nullptr;
  const FunctionList* functions = nullptr;
  const DumpMap* map = nullptr;  // null: unknown
  DppPages dpps = {};
};

class CodeReader {
 public:
  CodeReader(const CodeSources& sources, const Messages& texts) : from_(sources), texts_(texts) {}

  // The row with this number.
  [[nodiscard]] CodeLine Read(Offset row) const;
  // What lies at a phone address: its name, a text in quotes, or what the map says; empty if unknown.
  [[nodiscard]] std::string NameOf(std::uint32_t address) const;
  // The name of the function that holds a place, or its address; empty outside functions.
  [[nodiscard]] std::string FunctionAt(Offset offset) const;

 private:
  struct Step {
    Offset row;
    Instruction instruction;
  };

  [[nodiscard]] CodeLine Heading(const CodeRow& row) const;
  [[nodiscard]] CodeLine Data(const CodeRow& row) const;
  [[nodiscard]] CodeLine Code(Offset number, const CodeRow& row) const;
  [[nodiscard]] std::optional<Step> Neighbour(Offset row, int direction) const;
  [[nodiscard]] ExtRange RangeAt(Offset row) const;
  [[nodiscard]] std::optional<std::uint32_t> MemoryAddress(const Instruction& instruction,
                                                           const ExtRange& range) const;
  [[nodiscard]] StraightLine LineAround(Offset row, const Instruction& instruction) const;
  [[nodiscard]] std::optional<std::uint32_t> PairAddress(Offset row, const Instruction& instruction) const;
  [[nodiscard]] std::optional<std::uint32_t> PointerAt(Offset offset) const;
  [[nodiscard]] std::string QuotedText(Offset offset) const;
  void AddComment(std::string& text, Offset offset) const;
  [[nodiscard]] const Fullflash& Image() const { return from_.dump->image; }

  CodeSources from_;
  const Messages& texts_;
};

}  // namespace tarvelo
