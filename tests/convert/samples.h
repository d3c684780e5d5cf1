// Typed access to what the conversion functions read and write, packed samples among it.
#pragma once

#include "support/exact_model.h"
#include "support/members.h"
#include "support/test.h"

namespace test {

// A packed sample as three bytes; independent of how the library decodes them.
template <bool isSigned>
struct Sample24 {
  Mox8u bytes[3];

  Sample24(long v = 0) : bytes{Mox8u(v), Mox8u(v >> 8), Mox8u(v >> 16)} {}
  operator long() const {
    const long v = bytes[0] + 256L * bytes[1] + 65536L * bytes[2];
    return isSigned && v >= 1 << 23 ? v - (1 << 24) : v;
  }
};
using Sample24s = Sample24<true>;
using Sample24u = Sample24<false>;

template <>
inline constexpr Range rangeOf<Sample24s> = {-(1 << 23), (1 << 23) - 1};
template <>
inline constexpr Range rangeOf<Sample24u> = {0, (1 << 24) - 1};

// What a prototype calls an array of E.
template <class E>
auto raw(E* p) {
  return p;
}
template <class E>
requires requires(E e) { e.bytes; }
auto raw(E* p) { return p->bytes; }

// Samples S to samples D.
template <class S, class D, class... A, class... P>
auto convert(Member<A...> m, const std::vector<S>& src, P... p) {
  const auto call = [&](D* dst, int len) {
    return m.function(raw(src.data()), raw(dst), len, p...);
  };
  return resultsOf(m.name, std::vector<D>(src.size()), call, src);
}

}  // namespace test
