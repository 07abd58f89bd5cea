// The sieves' loops over vectors. Each file that includes this compiles them for one kind of vector.
//
// All of it is local to that file and uses nothing but the language: the linker could otherwise keep a shared
// function in the form compiled for a machine that is not there.
//
// Before it calls SieveOver, a file defines a type `Vector` with
//   width                      bytes
//   Load(p)                    the bytes from p on; any alignment
//   Splat<step>(word)          the word of `step` bytes, repeated
//   a & b, a | b
//   Equal<step>(a, b)          sets all bits of each word of `step` bytes that is equal in both
//   Bits(a)                    the highest bit of each byte
//   Prefetch(p)                p may be any address
#pragma once

#include "core/scan/vector_units.h"

namespace tarvelo {
namespace {

template <class Vector, int step>
struct VectorProbe {
  VectorProbe(const SieveProbes& probes, int i)
      : offset(probes.offset[i]),
        value(Vector::template Splat<step>(probes.value[i])),
        mask(Vector::template Splat<step>(probes.mask[i])) {}

  // Sets all bits of each word from p on that matches. Single bytes are never masked.
  Vector Matches(const std::uint8_t* p) const {
    const Vector words = Vector::Load(p + offset);
    return Vector::template Equal<step>(step == 1 ? words : words & mask, value);
  }

  std::int32_t offset;
  Vector value, mask;
};

// The bits for the positions of a block that begins at p.
template <class Vector, int step>
SieveBits BlockBits(const std::uint8_t* p, const SieveProbes& probes) {
  constexpr std::uint64_t positions = step == 1   ? 0xFFFFFFFFFFFFFFFF
                                      : step == 2 ? 0x5555555555555555
                                                  : 0x1111111111111111;
  const VectorProbe<Vector, step> a(probes, 0), b(probes, 1), c(probes, 2), d(probes, 3);
  SieveBits bits{};
  for (int i = 0; i < SieveBits::positions; i += Vector::width, p += Vector::width) {
    const Vector all = (a.Matches(p) & b.Matches(p)) & (c.Matches(p) & d.Matches(p));
    bits.words[i / 64] |= static_cast<std::uint64_t>(Vector::Bits(all)) << i % 64 & positions;
  }
  return bits;
}

// Sets all bits of each word from p on that matches the first `count` probes.
template <class Vector, int step, int count>
Vector FirstMatches(const VectorProbe<Vector, step> (&probes)[count], const std::uint8_t* p) {
  Vector all = probes[0].Matches(p);
  for (int i = 1; i < count; ++i) all = all & probes[i].Matches(p);
  return all;
}

template <class Vector, int step, int count>
const std::uint8_t* SieveWith(const VectorProbe<Vector, step> (&compared)[count], const std::uint8_t* block,
                              const std::uint8_t* end, const SieveProbes& probes, SieveBits& bits) {
  constexpr int ahead = 512;
  for (; end - block >= SieveBits::positions; block += SieveBits::positions) {
    Vector::Prefetch(block + ahead);
    Vector::Prefetch(block + ahead + 64);
    Vector any = FirstMatches(compared, block);
    for (int i = Vector::width; i < SieveBits::positions; i += Vector::width)
      any = any | FirstMatches(compared, block + i);
    if (Vector::Bits(any) == 0) continue;
    bits = BlockBits<Vector, step>(block, probes);
    if ((bits.words[0] | bits.words[1]) != 0) return block;
  }
  bits = SieveBits{};
  return block;
}

template <class Vector, int step>
const std::uint8_t* SieveOver(const std::uint8_t* block, const std::uint8_t* end, const SieveProbes& probes,
                              SieveBits& bits) {
  using Compared = VectorProbe<Vector, step>;
  const Compared first(probes, 0), second(probes, 1), third(probes, 2);
  if (probes.everywhere == 2) {
    const Compared two[] = {first, second};
    return SieveWith(two, block, end, probes, bits);
  }
  const Compared three[] = {first, second, third};
  return SieveWith(three, block, end, probes, bits);
}

template <class Vector, int step>
std::uint64_t MarkBlocks(const std::uint8_t* block, const SieveProbes& probes) {
  const VectorProbe<Vector, step> compared[] = {{probes, 0}, {probes, 1}};
  std::uint64_t marks = 0;
  for (int i = 0; i < 64; ++i, block += SieveBits::positions) {
    Vector any = FirstMatches(compared, block);
    for (int at = Vector::width; at < SieveBits::positions; at += Vector::width)
      any = any | FirstMatches(compared, block + at);
    marks |= std::uint64_t{Vector::Bits(any) != 0} << i;
  }
  return marks;
}

template <class Vector>
bool AllErased(const std::uint8_t* p, const std::uint8_t* end) {
  constexpr int group = 256;
  const Vector erased = Vector::template Splat<1>(0xFF);
  const std::uint32_t allBits = Vector::Bits(erased);
  for (; end - p >= group; p += group) {
    Vector all = Vector::Load(p);
    for (int at = Vector::width; at < group; at += Vector::width) all = all & Vector::Load(p + at);
    if (Vector::Bits(Vector::template Equal<1>(all, erased)) != allBits) return false;
  }
  while (p < end && *p == 0xFF) ++p;
  return p == end;
}

template <class Vector>
constexpr SieveLoops loopsOver{SieveOver<Vector, 1>,  SieveOver<Vector, 2>,  SieveOver<Vector, 4>,
                               MarkBlocks<Vector, 1>, MarkBlocks<Vector, 2>, MarkBlocks<Vector, 4>,
                               AllErased<Vector>};

}  // namespace
}  // namespace tarvelo
