// Made-up firmware with the habits of compiled C166 code, and later versions of it: functions that moved,
// were edited, came and went; twins; lists of calls; variables, bits, members and texts that move.
#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <random>
#include <vector>

#include "text/bytes.h"

namespace tarvelo {

// An instruction before linking: its bytes, and the symbol that fills its address.
struct ModelInstruction {
  enum class Field : std::uint8_t {
    None,
    Function,  // CALLS: segment and offset
    Label,     // a jump: the id of an instruction of the same function
    Variable,  // a memory operand in near memory
    Bit,
    Member,      // [Rw+#disp]
    TextOffset,  // MOV Rn,#offset of a text
    TextPage,    // MOV Rn+1,#page of a text
  };

  std::array<std::uint8_t, 4> bytes{};
  int size = 2;
  Field field = Field::None;
  int symbol = 0;
  int id = 0;  // the same in all versions
};

struct ModelFunction {
  int id = 0;
  std::vector<ModelInstruction> body;
};

struct LinkedModel {
  std::vector<std::uint8_t> image;
  std::map<int, Offset> places;     // instruction id -> offset
  std::map<int, Offset> functions;  // function id -> offset
  std::map<int, Offset> texts;      // text number -> offset
};

class FirmwareModel {
 public:
  FirmwareModel(unsigned seed, int functions);

  // A later version; `amount` is the share of functions that are edited, and likewise removed and added.
  [[nodiscard]] FirmwareModel Later(unsigned seed, double amount) const;

  // An image that ends at the top of the address space; 2 MiB hold about 4000 functions.
  [[nodiscard]] LinkedModel Link(std::size_t imageSize = 0x200000) const;

  [[nodiscard]] const std::vector<ModelFunction>& Functions() const { return functions_; }

 private:
  int Pick(int count) { return static_cast<int>(random_() % static_cast<unsigned>(count)); }
  bool Chance(double share) { return static_cast<double>(random_()) / 4294967296.0 < share; }
  [[nodiscard]] int AnyFunction();
  ModelFunction Make(int size);
  ModelFunction Twin(const ModelFunction& of);
  ModelInstruction Ordinary();
  ModelInstruction CallOf(int function);
  void Edit(ModelFunction& function);
  void MoveSymbols(std::vector<int>& symbols, double amount, int first);

  std::mt19937 random_;
  int nextFunction_ = 0;
  int nextInstruction_ = 0;
  std::vector<ModelFunction> functions_;  // in link order
  std::vector<int> inTables_;             // functions that only tables name
  // In the order of their addresses; -1 is a gap of another variable.
  std::vector<int> variables_, bits_, members_, texts_;
};

}  // namespace tarvelo
