// The open dump as code: its rows, and what can be said about each.
#pragma once

#include <map>
#include <memory>
#include <vector>

#include "code/code_rows.h"
#include "code/function_jumps.h"
#include "document/code_reader.h"

namespace tarvelo {

class CodeView {
 public:
  static constexpr int lanes = 5;  // of the lines of jumps

  // `map` may be null. `dump` and `texts` must outlive the view.
  CodeView(const Dump& dump, const Messages& texts, std::shared_ptr<const FunctionList> functions,
           std::shared_ptr<const DumpMap> map, const DppPages& dpps);

  [[nodiscard]] const Fullflash& Image() const { return dump_.image; }
  [[nodiscard]] const Names& PlaceNames() const { return dump_.names; }
  [[nodiscard]] const CodeRows& Rows() const { return rows_; }
  [[nodiscard]] const CodeReader& Reader() const { return reader_; }
  [[nodiscard]] const FunctionList& Functions() const { return *functions_; }
  // The jumps within the function that holds an offset; none outside functions.
  [[nodiscard]] const std::vector<FunctionJump>& JumpsAt(Offset offset) const;

 private:
  const Dump& dump_;
  std::shared_ptr<const FunctionList> functions_;
  std::shared_ptr<const DumpMap> map_;
  CodeRows rows_;
  CodeReader reader_;
  mutable std::map<Offset, std::vector<FunctionJump>> jumps_;  // by function, of those seen
};

}  // namespace tarvelo
