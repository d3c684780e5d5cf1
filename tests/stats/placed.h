// Data for reductions: vectors on which another order of additions gives another sum, placed at
// any distance from a vector boundary.
#pragma once

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "support/random.h"

namespace test {

// A copy of elements that starts `offset` bytes past a boundary of 64.
template <class E>
class Placed {
 public:
  Placed(const std::vector<E>& elements, long offset)
      : memory_(elements.size() * sizeof(E) + 128), address_(std::uintptr_t(memory_.data())) {
    address_ += -address_ % 64 + std::uintptr_t(offset);
    std::memcpy(reinterpret_cast<void*>(address_), elements.data(), elements.size() * sizeof(E));
  }
  operator const E*() const { return reinterpret_cast<const E*>(address_); }

 private:
  std::vector<unsigned char> memory_;
  std::uintptr_t address_;
};

// Elements before the next multiple of `alignment`; none when no element starts there.
inline long peelOf(long offset, long alignment, long elementBytes, long len) {
  const long missing = (alignment - offset % alignment) % alignment;
  return missing % elementBytes ? 0 : std::min(len, missing / elementBytes);
}

// Magnitudes that differ by up to 2^20, so that nearly every addition rounds.
template <class E>
std::vector<E> roundingData(long len, std::uint64_t stream) {
  Random random(stream);
  std::vector<E> v = random.vector<E>(len);
  for (E& e : v)
    for (int p = 0; p < mox::partsPerElement<E>; ++p)
      mox::parts(&e)[p] *= mox::Part<E>(std::ldexp(1.0, int(random.below(20))));
  return v;
}

// Every short length at every address; lengths about the ends of blocks at some.
template <class Check>
void atLengthsAndOffsets(long shortest, Check check) {
  for (long len = shortest; len <= 70; ++len)
    for (long offset = 0; offset < 33; ++offset) check(len, offset);
  for (const long block : {4096L, 8192L, 16384L, 65536L})
    for (const long len : {block - 1, block, block + 1, block + 7, block + 31})
      for (const long offset : {0L, 3L, 4L, 8L, 12L, 16L, 28L}) check(len, offset);
}

// The same bits, or two NaN.
template <class F>
testing::AssertionResult same(F got, F expected, const std::string& what) {
  if ((std::isnan(got) && std::isnan(expected)) || std::memcmp(&got, &expected, sizeof got) == 0)
    return testing::AssertionSuccess();
  return testing::AssertionFailure()
         << what << ": " << got << " instead of " << expected << ", " << seedNote();
}

inline std::string at(long len, long offset) {
  return "length " + std::to_string(len) + ", offset " + std::to_string(offset);
}

}  // namespace test
