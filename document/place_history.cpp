#include "document/place_history.h"

namespace tarvelo {

bool PlaceHistory::IsElsewhere(const VisitedPlace& from) const {
  return places_.empty() || places_[now_].panel != from.panel;
}

// Within a panel, the user may have moved on since the last jump: the place left is where they are now.
void PlaceHistory::Jump(const VisitedPlace& from, const VisitedPlace& to) {
  if (from == to) return;
  if (!places_.empty()) places_.resize(now_ + 1);
  if (IsElsewhere(from))
    places_.push_back(from);
  else
    places_[now_] = from;
  places_.push_back(to);
  if (places_.size() > longest) places_.erase(places_.begin(), places_.end() - longest);
  now_ = places_.size() - 1;
}

std::optional<VisitedPlace> PlaceHistory::Back(const VisitedPlace& from) {
  if (!CanGoBack(from)) return {};
  if (IsElsewhere(from)) {
    places_.resize(now_ + 1);
    places_.push_back(from);
    return places_[now_];
  }
  places_[now_] = from;
  return places_[--now_];
}

std::optional<VisitedPlace> PlaceHistory::Forward(const VisitedPlace& from) {
  if (!CanGoForward()) return {};
  if (!IsElsewhere(from)) places_[now_] = from;
  return places_[++now_];
}

bool PlaceHistory::CanGoBack(const VisitedPlace& from) const {
  return now_ > 0 || (!places_.empty() && IsElsewhere(from));
}

void PlaceHistory::Clear() {
  places_.clear();
  now_ = 0;
}

}  // namespace tarvelo
