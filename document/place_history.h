// The places that the user has been to, for going back and forth: one history for the whole document.
#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "text/bytes.h"

namespace tarvelo {

// A place in a panel. What `at` counts is the panel's matter.
struct VisitedPlace {
  int panel = 0;
  Offset at = 0;

  [[nodiscard]] bool operator==(const VisitedPlace&) const = default;
};

class PlaceHistory {
 public:
  static constexpr std::size_t longest = 500;  // places; the oldest go first

  // The user jumps from a place to another. Forgets what lies ahead.
  void Jump(const VisitedPlace& from, const VisitedPlace& to);
  // Goes one place back or forth from the current one, and returns it; nothing if there is none.
  [[nodiscard]] std::optional<VisitedPlace> Back(const VisitedPlace& from);
  [[nodiscard]] std::optional<VisitedPlace> Forward(const VisitedPlace& from);
  [[nodiscard]] bool CanGoBack(const VisitedPlace& from) const;
  [[nodiscard]] bool CanGoForward() const { return now_ + 1 < places_.size(); }
  void Clear();

 private:
  // Whether the user got to `from` without a jump, by showing another panel.
  [[nodiscard]] bool IsElsewhere(const VisitedPlace& from) const;

  std::vector<VisitedPlace> places_;
  std::size_t now_ = 0;  // the current one of `places_`
};

}  // namespace tarvelo
