// A list that the user looks through before anything is done.
#pragma once

#include <wx/string.h>

#include <cstddef>
#include <functional>
#include <optional>
#include <vector>

#include "core/table.h"
#include "resources/texts.h"

namespace tarvelo {

// What surrounds a row of the list.
struct ReviewDetails {
  wxString text;  // a line; empty: none
  TableRows rows;
  std::optional<std::size_t> middle;  // the row to show
};

struct Review {
  Text title;
  wxString heading{};  // above all else; a long one scrolls. Empty: none
  wxString summary;    // above the list
  TableRows rows;
  Text accept;  // the button that does it
  bool canAccept = true;
  Text cancel = Text::Cancel;            // the button that does nothing, which Enter and Escape press
  std::optional<Text> acceptSelected{};  // the button that does it for the selected rows alone
  std::function<ReviewDetails(std::size_t row)> details{};  // shown below the list; none: nothing is
};

struct ReviewAnswer {
  std::optional<std::vector<std::size_t>> selected;  // the rows to do it for; nothing: the usual ones
};

}  // namespace tarvelo
