// How a long command reports its progress. The desktop moves a bar; the command line prints one.
#pragma once

#include <cstdint>
#include <exception>

namespace tarvelo {

class Progress {
 public:
  virtual ~Progress() = default;

  // Begins a run over the positions first .. last, usually offsets of the image.
  virtual void Start(std::int64_t first, std::int64_t last) = 0;
  // The position reached. Called rarely enough to cost nothing compared with the work.
  virtual void At(std::int64_t position) = 0;
  // The run is over, finished or abandoned.
  virtual void Finish() = 0;
  // Whether the user wants to stop the run. Commands that can be stopped ask after At.
  [[nodiscard]] virtual bool StopAsked() { return false; }
};

// For callers that show no progress.
class NoProgress final : public Progress {
 public:
  void Start(std::int64_t, std::int64_t) override {}
  void At(std::int64_t) override {}
  void Finish() override {}
};

// The user has stopped a search. It found nothing, and nothing has changed.
class Stopped final : public std::exception {
 public:
  [[nodiscard]] const char* what() const noexcept override { return "stopped by the user"; }
};

// Reports to another progress, and throws Stopped from At when the user wants to stop: for searches that do
// not ask.
class Interruptible final : public Progress {
 public:
  explicit Interruptible(Progress& progress) : progress_(progress) {}

  void Start(std::int64_t first, std::int64_t last) override { progress_.Start(first, last); }
  void At(std::int64_t position) override {
    progress_.At(position);
    if (progress_.StopAsked()) throw Stopped();
  }
  void Finish() override { progress_.Finish(); }

 private:
  Progress& progress_;
};

// Starts a run and finishes it at the end of the scope, even if an exception ends it.
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
