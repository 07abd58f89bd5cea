// An index of the bytes of an image: where eight given bytes stand.
#pragma once

#include <cstdint>
#include <vector>

#include "text/bytes.h"

namespace tarvelo {

class GramIndex {
 public:
  static constexpr Offset size = 8;  // bytes of a gram

  // The bytes must outlive the index. Only every eighth place is indexed, so that each run of 15 bytes holds
  // one. Runs of one byte are left out.
  explicit GramIndex(Bytes bytes);

  // Calls take(place) for the indexed places that have the bytes at `at` of `from`, unless too many look
  // alike.
  template <typename Take>
  void Each(Bytes from, Offset at, Take take) const {
    const std::uint64_t gram = GramAt(from, at);
    const std::size_t bucket = BucketOf(gram);
    if (firsts_[bucket + 1] - firsts_[bucket] > most) return;
    for (std::uint32_t i = firsts_[bucket]; i < firsts_[bucket + 1]; ++i)
      if (GramAt(bytes_, places_[i]) == gram) take(Offset{places_[i]});
  }

 private:
  static constexpr std::uint32_t most = 24;

  static std::uint64_t GramAt(Bytes bytes, Offset at);
  [[nodiscard]] std::size_t BucketOf(std::uint64_t gram) const {
    return static_cast<std::size_t>(gram * 0x9E3779B97F4A7C15 >> shift_);
  }

  Bytes bytes_;
  int shift_ = 0;
  std::vector<std::uint32_t> firsts_;  // of the places of each bucket, and their end
  std::vector<std::uint32_t> places_;
};

}  // namespace tarvelo
