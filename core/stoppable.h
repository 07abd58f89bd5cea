// Work that the user can stop: a run that is stopped ends with an exception.
#pragma once

#include "core/progress.h"

namespace tarvelo {

// The user has stopped a run. Whoever offers to stop it catches this.
class Stopped {};

// Passes a run on and throws Stopped at the next position after the user has asked to stop.
class StoppableProgress final : public Progress {
 public:
  explicit StoppableProgress(Progress& progress) : progress_(progress) {}

  void Start(std::int64_t first, std::int64_t last) override { progress_.Start(first, last); }
  void At(std::int64_t position) override {
    progress_.At(position);
    if (progress_.StopAsked()) throw Stopped();
  }
  void Finish() override { progress_.Finish(); }
  [[nodiscard]] bool StopAsked() override { return progress_.StopAsked(); }

 private:
  Progress& progress_;
};

}  // namespace tarvelo
