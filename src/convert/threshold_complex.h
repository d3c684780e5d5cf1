// Magnitudes of complex elements against a level.
#pragma once

#include <cmath>
#include <limits>

#include "frame/map.h"
#include "frame/pair.h"

namespace mox::convert {

// A type in which the square of any number of type F is normal, and not rounded for floats.
template <class F>
using Wider = std::conditional_t<sizeof(F) == 4, Mox64f, long double>;

// Holds the x87 unit, where it computes Wider<F>, at full precision, which the caller may have
// lowered.
template <class F>
class WiderScope {
 public:
  WiderScope() {
    if constexpr (onX87) {
      asm volatile("fnstcw %0" : "=m"(outer_));
      if (isLowered()) load(outer_ | full);
    }
  }
  ~WiderScope() {
    if (onX87 && isLowered()) load(outer_);
  }

 private:
  static constexpr bool onX87 = sizeof(F) == 8;
  static constexpr Mox16u full = 0x0300;

  bool isLowered() const { return (outer_ & full) != full; }
  static void load(Mox16u word) { asm volatile("fldcw %0" : : "m"(word) : "memory"); }

  Mox16u outer_ = full;
};

// Within these bounds the square of a level is far from the ends of F, and so is every squared
// magnitude between the next two: its reciprocal is a normal number.
template <class F>
struct Bounds {
  static constexpr bool isSingle = sizeof(F) == 4;
  static constexpr F leastLevel = isSingle ? 0x1p-40 : 0x1p-400,
                     mostLevel = isSingle ? 0x1p60 : 0x1p500;
  static constexpr F leastSquare = isSingle ? 0x1p-96 : 0x1p-900,
                     mostSquare = isSingle ? 0x1p126 : 0x1p1022;
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

// dst[i] = op(src[i]) by as many elements as a vector has lanes. Where op.strays() has a lane of
// squared magnitudes that its arithmetic doesn't serve, these elements are done again, one by one.
template <class E, class Op>
void mapMagnitudes(Op& op, const E* src, E* dst, long len) {
  using F = Part<E>;
  using T = V<F>;
  constexpr long count = lanesOf<F>;
  // The numbers of a block are out of order in between.
  const auto from = [](const E* p) { return deinterleaved(load<T>(p), load<T>(p + count / 2)); };
  const auto to = [](E* p, Pair<T> z, auto put) {
    put(p, interleavedLow(z)), put(p + count / 2, interleavedHigh(z));
  };
  const auto block = [&](const E* source, E* target, auto put) {
    const Pair<T> z = from(source);
    const T m = squaredMagnitude(z);
    Pair<T> result = op(z, m);
    if (signBits(T(op.strays(m)))) [[unlikely]] {
      E in[count], out[count];
      const auto plain = [](void* p, auto v) { store(p, v); };
      to(in, z, plain), to(out, result, plain);
      for (long i = 0; i < count; ++i)
        if (op.strays(squaredMagnitude<F>(in[i]))) out[i] = op.one(in[i]);
      result = from(out);
    }
    to(target, result, put);
  };
  forWholeBlocks<count>(bypasses<Stores::bypassing>(dst, len, src), src, dst, len, block);
}

}  // namespace mox::convert
