#include "cli/progress_bar.h"

#include <algorithm>
#include <iostream>
#include <string>

#include "cli/platform/terminal.h"

namespace tarvelo::cli {
namespace {

class Bar final : public Progress {
 public:
  void Start(std::int64_t first, std::int64_t last) override {
    first_ = first;
    span_ = std::max<std::int64_t>(1, last - first);
    shown_ = -1;
  }

  void At(std::int64_t position) override {
    const int part =
        static_cast<int>(std::clamp<std::int64_t>((position - first_) * width / span_, 0, width));
    if (part == shown_) return;
    shown_ = part;
    const auto filled = static_cast<std::size_t>(part);
    std::cerr << "\r[" << std::string(filled, '#') << std::string(width - filled, ' ') << ']' << std::flush;
  }

  void Finish() override {
    if (shown_ >= 0) std::cerr << '\r' << std::string(width + 2, ' ') << '\r' << std::flush;
  }

 private:
  static constexpr int width = 40;
  std::int64_t first_ = 0;
  std::int64_t span_ = 1;
  int shown_ = -1;
};

}  // namespace

std::unique_ptr<Progress> TerminalProgress() {
  if (ErrorIsTerminal()) return std::make_unique<Bar>();
  return std::make_unique<NoProgress>();
}

}  // namespace tarvelo::cli
