// How a long command tells how far it is. The desktop moves a bar; a command line prints one.
#pragma once

#include <cstdint>

namespace tarvelo {

class Progress {
 public:
  virtual ~Progress() = default;

  // Begins a run of positions first .. last (offsets of the image, as a rule).
  virtual void Start(std::int64_t first, std::int64_t last) = 0;
  // The position reached. Called at intervals that cost nothing beside the work.
  virtual void At(std::int64_t position) = 0;
  // The run is over, done or given up.
  virtual void Finish() = 0;
  // Whether the user wants the run to end early. Commands that can be stopped ask after At.
  [[nodiscard]] virtual bool StopAsked() { return false; }
};

// For callers whom nobody watches.
class NoProgress final : public Progress {
 public:
  void Start(std::int64_t, std::int64_t) override {}
  void At(std::int64_t) override {}
  void Finish() override {}
};

// Starts a run and finishes it when the scope ends, by whatever way.
class ProgressRun {
 public:
  ProgressRun(Progress& progress, std::int64_t first, std::int64_t last) : progress_(progress) {
    progress_.Start(first, last);
  }
  ~ProgressRun() { progress_.Finish(); }
  ProgressRun(const ProgressRun&) = delete;
  ProgressRun& operator=(const ProgressRun&) = delete;

  void At(std::int64_t position) { progress_.At(position); }
  [[nodiscard]] bool StopAsked() { return progress_.StopAsked(); }

 private:
  Progress& progress_;
};

}  // namespace tarvelo
