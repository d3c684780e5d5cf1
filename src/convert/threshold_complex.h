// Magnitudes of complex elements against a level.
#pragma once

#include <cmath>
#include <limits>

#include "frame/elements.h"
#include "frame/map.h"
#include "frame/vec/vec.h"

namespace mox {

// A type in which the square of any number of type F is normal, and not rounded for floats.
template <class F>
using Wider = std::conditional_t<sizeof(F) == 4, Mox64f, long double>;

// Within these bounds the square of a level is far from the ends of F, and so is every squared
// magnitude between the next two: its reciprocal is a normal number.
template <class F>
struct Bounds;
template <>
struct Bounds<Mox32f> {
  static constexpr Mox32f leastLevel = 0x1p-40f, mostLevel = 0x1p60f;
  static constexpr Mox32f leastSquare = 0x1p-96f, mostSquare = 0x1p126f;
};
template <>
struct Bounds<Mox64f> {
  static constexpr Mox64f leastLevel = 0x1p-400, mostLevel = 0x1p500;
  static constexpr Mox64f leastSquare = 0x1p-900, mostSquare = 0x1p1022;
};

template <class F>
bool squaresWell(F level) {
  return level >= Bounds<F>::leastLevel && level <= Bounds<F>::mostLevel;
}

template <class W, class E>
W squaredMagnitude(E z) {
  const W re = z.re, im = z.im;
  return re * re + im * im;
}

// Complex elements in two vectors, to go with one vector of a real number for each: within 16 bytes
// those of the first vector come before those of the second.
template <class F>
struct ComplexPair {
  static constexpr long count = lanesOf<F>;

  static ComplexPair from(const auto* src) {
    return {load<V<F>>(src), load<V<F>>(src + count / 2)};
  }
  void to(auto* dst, auto put) const { put(dst, first), put(dst + count / 2, second); }

  // In every element the same arithmetic as in squaredMagnitude<F>().
  V<F> squaredMagnitudes() const {
    const V<F> a = first * first, b = second * second;
    return alternate<0>(a, b) + alternate<1>(a, b);
  }

  V<F> first, second;

 private:
  template <int from>
  static V<F> alternate(V<F> a, V<F> b) {
    return shuffle<[](int i) {
      constexpr int block = 16 / int(sizeof(F)), half = block / 2;
      const int lane = i % block;
      return i - lane + from + 2 * (lane % half) + lane / half * int(count);
    }>(a, b);
  }
};

// The real numbers twice, for the parts of the first and of the second vector.
template <class F>
[[gnu::always_inline]] inline ComplexPair<F> forParts(V<F> v) {
  return {unpackLow<F>(v, v), unpackHigh<F>(v, v)};
}

// dst[i] = op(src[i]) in pairs of vectors. Where op.strays() has a lane of squared magnitudes that
// its arithmetic doesn't serve, the elements concerned are done again, one by one.
template <class E, class Op>
void mapMagnitudes(Op& op, const E* src, E* dst, long len) {
  using F = Part<E>;
  constexpr long count = ComplexPair<F>::count;
  const auto block = [&](const E* from, E* to, auto put) {
    const auto z = ComplexPair<F>::from(from);
    const V<F> m = z.squaredMagnitudes();
    auto result = op(z, m);
    if (signBits(V<F>(op.strays(m)))) [[unlikely]] {
      E in[count], out[count];
      const auto plain = [](void* p, auto v) { store(p, v); };
      z.to(in, plain), result.to(out, plain);
      for (long i = 0; i < count; ++i)
        if (op.strays(squaredMagnitude<F>(in[i]))) out[i] = op.one(in[i]);
      result = ComplexPair<F>::from(out);
    }
    result.to(to, put);
  };
  forWholeBlocks<count>(bypasses<Stores::bypassing>(dst, len, src), src, dst, len, block);
}

}  // namespace mox
