#include "port/gram_index.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace tarvelo {

GramIndex::GramIndex(Bytes bytes) : bytes_(bytes) {
  const Offset end = std::ssize(bytes) - size + 1;
  const auto count = static_cast<std::size_t>(std::max<Offset>(end, 0) / size) + 1;
  const int bits = std::max(1, static_cast<int>(std::bit_width(count)));
  shift_ = 64 - bits;
  firsts_.resize((std::size_t{1} << bits) + 1);
  const auto each = [&](auto take) {
    for (Offset at = 0; at < end; at += size)
      if (const std::uint64_t gram = GramAt(bytes_, at); gram != std::rotl(gram, 8)) take(BucketOf(gram), at);
  };
  each([&](std::size_t bucket, Offset) { ++firsts_[bucket + 1]; });
  for (std::size_t i = 1; i < firsts_.size(); ++i) firsts_[i] += firsts_[i - 1];
  places_.resize(firsts_.back());
  std::vector<std::uint32_t> next(firsts_.begin(), firsts_.end() - 1);
  each([&](std::size_t bucket, Offset at) { places_[next[bucket]++] = static_cast<std::uint32_t>(at); });
}

std::uint64_t GramIndex::GramAt(Bytes bytes, Offset at) {
  std::uint64_t gram = 0;
  std::memcpy(&gram, bytes.data() + at, sizeof gram);
  return gram;
}

}  // namespace tarvelo
