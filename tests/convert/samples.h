// Typed access to what the conversion functions read and write, packed samples among it.
#pragma once

#include <moxsp.h>

#include <cstdint>

#include "convert/exact_model.h"

namespace test {

// A packed sample as three bytes; independent of how the library decodes them.
template <bool isSigned>
struct Sample24 {
  Mox8u bytes[3];
  operator long() const {
    const long v = bytes[0] + 256L * bytes[1] + 65536L * bytes[2];
    return isSigned && v >= 1 << 23 ? v - (1 << 24) : v;
  }
};
using Sample24s = Sample24<true>;
using Sample24u = Sample24<false>;

template <class E>
constexpr Range rangeOfSample = rangeOf<E>;
template <>
inline constexpr Range rangeOfSample<Sample24s> = range24s;
template <>
inline constexpr Range rangeOfSample<Sample24u> = range24u;

// What a prototype calls an array of E.
template <class E>
struct Stored {
  using type = E;
};
template <bool isSigned>
struct Stored<Sample24<isSigned>> {
  using type = Mox8u;
};
template <class E>
auto raw(E* p) {
  return reinterpret_cast<typename Stored<E>::type*>(p);
}
template <class E>
auto raw(const E* p) {
  return reinterpret_cast<const typename Stored<E>::type*>(p);
}

}  // namespace test
