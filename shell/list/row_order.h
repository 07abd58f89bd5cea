// Finds which rows of a list to show, and in which order. A long list takes a second or more, so the work can
// be done in steps while the list stays usable. Takes 28 bytes a row while it sorts.
#pragma once

#include <array>
#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "core/table.h"

namespace tarvelo {

// Whether a cell of a row, or the one in this column, contains a text in upper case, ignoring case.
[[nodiscard]] bool RowHolds(const Table::Row& row, const std::string& upperText,
                            std::optional<unsigned> column = {});

class RowOrder {
 public:
  using Clock = std::chrono::steady_clock;

  struct Wanted {
    std::string filter;              // in upper case; only rows that contain it
    std::optional<unsigned> column;  // sorted by its text; rows with equal texts keep their order
    bool descending = false;
  };

  // The rows must outlive the object.
  RowOrder(const TableRows& rows, Wanted wanted);

  // Works until a moment, at least a little. True once all is done.
  bool Work(Clock::time_point until);
  // The rows found so far; in their order only once all is done.
  [[nodiscard]] const std::vector<std::uint32_t>& Listed() const { return listed_; }

 private:
  static constexpr std::size_t keyBytes = 16;

  // A piece of the text that rows are sorted by, as two numbers that compare like it.
  struct Key {
    std::array<std::uint64_t, 2> piece;
    std::uint32_t row;
  };
  // Keys that are equal so far, with the number of pieces compared.
  struct Group {
    std::size_t begin, end;
    std::size_t pieces;
  };

  [[nodiscard]] bool Filter(Clock::time_point until);
  [[nodiscard]] bool Sort(Clock::time_point until);
  [[nodiscard]] bool ReadPieces(const Group& group, Clock::time_point until);
  void SortGroup(const Group& group);
  [[nodiscard]] Key KeyOf(std::uint32_t row, std::size_t pieces);

  const TableRows& rows_;
  Wanted wanted_;
  std::size_t next_ = 0;  // the first row not filtered yet
  std::vector<std::uint32_t> listed_;
  std::vector<Key> keys_;
  std::vector<Group> groups_;  // still to sort
  std::size_t read_ = 0;       // keys of the last group that have their piece
  bool isLonger_ = false;      // a text of the last group goes on behind the piece
};

}  // namespace tarvelo
