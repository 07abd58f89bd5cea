// The order of the rows on the screen. A list that takes long gets it in steps.
#include <algorithm>
#include <chrono>
#include <utility>

#include "shell/list/list_view.h"

namespace tarvelo {
namespace {

constexpr std::chrono::milliseconds atOnce{200};  // for filtering and sorting; longer work is done in steps
constexpr std::chrono::milliseconds stepLength{60};
constexpr int betweenSteps = 5;  // milliseconds

}  // namespace

// Puts the rows on the screen in order; a long list may follow later. Those selected stay so if they are
// still listed.
void ListView::Arrange() {
  std::vector<std::size_t> selected = Selection();
  if (!work_ || !selected.empty()) kept_ = std::move(selected);
  work_.emplace(rows_, RowOrder::Wanted{filter_, sortColumn_, descending_});
  const bool isDone = work_->Work(RowOrder::Clock::now() + atOnce);
  if (isDone) return ShowOrder();
  // Until then, what a filter has found so far; what is sorted stays as it was.
  const bool isOld = sortColumn_ && filter_ == shownFilter_ && order_.size() <= rows_.count;
  if (!isOld || std::ranges::any_of(order_, [this](std::uint32_t row) { return row >= rows_.count; })) {
    order_ = work_->Listed();
    ResetModel();
  }
  next_.StartOnce(betweenSteps);
}

void ListView::WorkOn() {
  if (!work_) return;
  if (work_->Work(RowOrder::Clock::now() + stepLength))
    ShowOrder();
  else
    next_.StartOnce(betweenSteps);
}

void ListView::FinishOrder() {
  if (work_ && work_->Work(RowOrder::Clock::time_point::max())) ShowOrder();
}

void ListView::ShowOrder() {
  order_ = work_->Listed();
  work_.reset();
  shownFilter_ = filter_;
  ResetModel();
  Choose(std::exchange(kept_, {}));
}

void ListView::ResetModel() {
  control_->OnInternalIdle();  // scrolls to a row, for which GTK waits: that row may be gone later
  const auto count = static_cast<unsigned>(order_.size());
  if (onlySorts_ && count == model_->GetCount())
    control_->Refresh();  // a reset takes GTK long
  else
    model_->Reset(count);
}

// Selects the listed ones of these rows and scrolls to the first of them, which becomes the current one.
void ListView::Choose(const std::vector<std::size_t>& rows) {
  control_->UnselectAll();
  if (rows.empty()) return;
  std::vector<std::uint32_t> wanted(rows.begin(), rows.end());
  std::ranges::sort(wanted);
  std::vector<std::pair<std::uint32_t, unsigned>> places;  // of the wanted rows
  for (unsigned place = 0; place < order_.size(); ++place)
    if (std::ranges::binary_search(wanted, order_[place])) places.emplace_back(order_[place], place);
  std::ranges::sort(places);
  wxDataViewItemArray items;
  for (const std::size_t row : rows) {
    const auto found = std::ranges::lower_bound(places, row, {}, &std::pair<std::uint32_t, unsigned>::first);
    if (found != places.end() && found->first == row) items.Add(model_->GetItem(found->second));
  }
  if (items.empty()) return;
  control_->SetCurrentItem(items.front());
  control_->SetSelections(items);
  control_->EnsureVisible(items.front());
}

}  // namespace tarvelo
