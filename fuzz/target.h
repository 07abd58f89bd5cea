// Shared by the targets: checks, a reader for inputs, and images larger than the inputs that describe them.
#pragma once

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <string>
#include <string_view>

#include "core/fullflash.h"
#include "core/progress.h"
#include "core/scan/vector_scan.h"
#include "text/unicode.h"

namespace tarvelo::fuzz {

// Each target defines what it does with an input.
void Run(Bytes data);

inline NoProgress noProgress;

// Ends the run as a finding if a condition does not hold.
inline void Check(bool holds, const char* what) {
  if (holds) return;
  std::fprintf(stderr, "Does not hold: %s\n", what);
  std::abort();
}

inline std::string_view TextOf(Bytes bytes) {
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

inline bool IsUtf8(const std::string& text) { return ToUtf8(ToUtf16(text)) == text; }

// Takes values from the front of an input; zeros after its end.
class Input {
 public:
  explicit Input(Bytes bytes) : rest_(bytes) {}

  [[nodiscard]] Bytes Rest() const { return rest_; }

  std::uint8_t Byte() {
    if (rest_.empty()) return 0;
    const std::uint8_t byte = rest_[0];
    rest_ = rest_.subspan(1);
    return byte;
  }

  std::uint16_t Word() {
    const unsigned low = Byte();
    return static_cast<std::uint16_t>(low | unsigned{Byte()} << 8);
  }

  std::int32_t DWord() {
    const std::uint32_t low = Word();
    return static_cast<std::int32_t>(low | std::uint32_t{Word()} << 16);
  }

  // As many bytes as there are, up to a number.
  Bytes Take(std::size_t most) {
    const Bytes taken = rest_.first(std::min(most, rest_.size()));
    rest_ = rest_.subspan(taken.size());
    return taken;
  }

  // The text up to the next zero byte, which is consumed too.
  std::string Text() {
    const auto end = static_cast<std::size_t>(std::ranges::find(rest_, 0) - rest_.begin());
    const std::string text(TextOf(rest_.first(end)));
    rest_ = rest_.subspan(std::min(end + 1, rest_.size()));
    return text;
  }

 private:
  Bytes rest_;
};

// The image that an input describes:
//   0     size: 1 .. 6 choose a size at which some rule changes; any other value the size of the content,
//         which is fast
//   1     around the content: 0 erased bytes, 1 zeros, 2 the content repeated (images of more than 1 MiB
//         are always erased); plus 3 or 6 for searches with narrower vectors
//   2     word: the content's position in pages of 0x100 bytes, clipped so that it fits; 0xFFFF is the end
//   4     the content
inline Fullflash ImageOf(Bytes data) {
  constexpr std::size_t sizes[] = {0, 0x10000, 0x20000, 0x90000, 0x100000, 0x800002, 0x1000001};
  constexpr std::size_t longestFilled = 0x100000;
  Input input(data);
  const std::size_t choice = input.Byte();
  const std::size_t wanted = choice < std::size(sizes) ? sizes[choice] : 0;
  const int manner = input.Byte();
  const int filling = manner % 3;
  LimitVectorUnit(static_cast<VectorUnit>(2 - manner / 3 % 3));
  const std::uint16_t page = input.Word();
  const Bytes content = input.Rest();

  FileBytes bytes(std::max(wanted, content.size()));
  std::uint8_t* const begin = bytes.data.get();
  const bool filled = bytes.size <= longestFilled;
  std::fill_n(begin, bytes.size, filled && filling == 1 ? std::uint8_t{0} : std::uint8_t{0xFF});
  if (filled && filling == 2 && !content.empty())
    for (std::size_t i = 0; i < bytes.size; ++i) begin[i] = content[i % content.size()];
  const std::size_t last = bytes.size - content.size();
  std::ranges::copy(content, begin + (page == 0xFFFF ? last : std::min(last, std::size_t{page} * 0x100)));
  return Fullflash(std::move(bytes));
}

}  // namespace tarvelo::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  tarvelo::fuzz::Run({data, size});
  return 0;
}
