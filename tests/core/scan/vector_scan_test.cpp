#include "core/scan/vector_scan.h"

#include <algorithm>
#include <random>
#include <vector>

#include "on_each_unit.h"

namespace tarvelo {
namespace {

class SieveOnEachUnit : public OnEachUnit {};
INSTANTIATE_TEST_SUITE_P(Units, SieveOnEachUnit, eachUnit);

std::vector<Offset> Found(const Sieve& sieve, Bytes bytes, Offset from, Offset last) {
  std::vector<Offset> found;
  EXPECT_FALSE(sieve.Each(bytes, from, last, [&](Offset p) {
    found.push_back(p);
    return false;
  }));
  return found;
}

// The definition: position by position, byte by byte.
std::vector<Offset> Plain(int step, std::span<const Probe> probes, Bytes bytes, Offset from, Offset last) {
  std::vector<Offset> found;
  for (Offset p = from; p <= last; p += step)
    if (std::ranges::all_of(probes, [&](const Probe& probe) {
          for (int k = 0; k < step; ++k) {
            const std::uint32_t mask = probe.mask >> 8 * k & 0xFF;
            if ((ByteAt(bytes, p + probe.offset + k) & mask) != (probe.value >> 8 * k & 0xFF)) return false;
          }
          return true;
        }))
      found.push_back(p);
  return found;
}

TEST_P(SieveOnEachUnit, AgreesWithTheDefinition) {
  std::mt19937 random(3);
  std::size_t total = 0;
  for (int round = 0; round < 6000; ++round) {
    const int step = 1 << random() % 3;
    const bool dense = random() % 4 == 0;
    std::vector<Probe> probes(1 + random() % 4);
    for (Probe& probe : probes) {
      probe.offset = static_cast<std::int32_t>(random() % (random() % 2 ? 4 : 40));
      probe.mask = step == 1      ? 0xFF
                   : random() % 2 ? 0xFFFFFFFF >> (32 - 8 * step)
                                  : random() % (1u << (8 * step - 1));
      probe.value = (dense ? 0 : random() % 3) & probe.mask;
    }
    // In a buffer of exactly the right size, at any alignment.
    std::vector<std::uint8_t> buffer(44 + random() % 700);
    for (std::uint8_t& byte : buffer) byte = random() % (dense ? 50 : 2) == 0 ? random() % 3 : 0;
    const Bytes bytes = Bytes(buffer).subspan(random() % 40);
    const Offset from = static_cast<Offset>(random() % 4);
    const Offset last = static_cast<Offset>(bytes.size()) - 44 - static_cast<Offset>(random() % 3);
    const Sieve sieve(step, probes, static_cast<int>(2 + random() % 2));
    const std::vector<Offset> found = Found(sieve, bytes, from, last);
    ASSERT_EQ(found, Plain(step, probes, bytes, from, last)) << round;
    total += found.size();
  }
  EXPECT_GT(total, 10000u);
}

}  // namespace
}  // namespace tarvelo
