// Functions that move bytes about: byte k of what they write is byte place(k) of what they read.
#pragma once

#include <gtest/gtest.h>
#include <moxsp/types.h>

#include <vector>

#include "support/random.h"

namespace test {

// `place(element, byte, len)` is where a byte of an element of `size` bytes comes from.
template <class E, class Place>
void expectPermutation(MoxStatus (*function)(const E*, E*, int), int size, Place place) {
  SCOPED_TRACE(seedNote());
  Random random;
  for (const int len : {1, 2, 3, 7, 16, 31, 33, 64, 200, 2051}) {
    const auto src = random.vector<Mox8u>(long(len) * size);
    std::vector<Mox8u> dst(src.size()), expected(src.size());
    for (long i = 0; i < len; ++i)
      for (long k = 0; k < size; ++k) expected[i * size + k] = src[place(i, k, len)];
    ASSERT_EQ(
        function(reinterpret_cast<const E*>(src.data()), reinterpret_cast<E*>(dst.data()), len),
        moxOk);
    ASSERT_EQ(dst, expected) << "len " << len;
  }
}

template <class E>
void expectPlaces(MoxStatus (*function)(const E*, E*, int), auto placeOfElement) {
  constexpr long size = sizeof(E);
  expectPermutation(function, size,
                    [=](long i, long k, long len) { return placeOfElement(i, len) * size + k; });
}

}  // namespace test
