// Works on many items at once and delivers the results in order.
#pragma once

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <exception>
#include <functional>
#include <mutex>
#include <optional>
#include <thread>
#include <vector>

namespace tarvelo::cli {

// Calls work(i) for the items 0 .. count - 1 on `jobs` threads. The destructor waits for started items and
// starts no others.
template <typename Result>
class InOrder {
 public:
  InOrder(std::size_t count, std::size_t jobs, std::function<Result(std::size_t)> work)
      : work_(std::move(work)), outcomes_(count) {
    for (std::size_t i = 0; i < std::min(jobs, count); ++i) threads_.emplace_back([this] { Work(); });
  }
  ~InOrder() { next_ = outcomes_.size(); }
  InOrder(const InOrder&) = delete;
  InOrder& operator=(const InOrder&) = delete;

  // Waits for the result of an item and moves it out. Throws what the work threw.
  Result Get(std::size_t item) {
    std::unique_lock lock(mutex_);
    ready_.wait(lock, [&] { return outcomes_[item].has_value(); });
    Outcome outcome = std::move(*outcomes_[item]);
    if (outcome.failure) std::rethrow_exception(outcome.failure);
    return std::move(*outcome.result);
  }

 private:
  struct Outcome {
    std::optional<Result> result;
    std::exception_ptr failure;
  };

  void Work() {
    for (std::size_t item; (item = next_++) < outcomes_.size();) {
      Outcome outcome;
      try {
        outcome.result = work_(item);
      } catch (...) {
        outcome.failure = std::current_exception();
      }
      const std::lock_guard lock(mutex_);
      outcomes_[item] = std::move(outcome);
      ready_.notify_one();
    }
  }

  std::function<Result(std::size_t)> work_;
  std::atomic<std::size_t> next_ = 0;
  std::mutex mutex_;
  std::condition_variable ready_;
  std::vector<std::optional<Outcome>> outcomes_;
  std::vector<std::jthread> threads_;  // last member: the threads end before what they use
};

}  // namespace tarvelo::cli
