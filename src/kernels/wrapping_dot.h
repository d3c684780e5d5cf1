// Sums of products of 16-bit integers that wrap around in 32 bits: their order is free, and so they
// are made by pairs.
#pragma once

#include "frame/elements.h"
#include "frame/vec/vec.h"
#include "kernels/tap_order.h"

namespace mox::kernels {

// Taps of 16 bits: those that a filter holds, or a caller's, shifted right until they fit.
template <TapOrder order, class A>
class WordTaps {
  using E = Part<A>;
  using Words = I<Mox16s>;
  static constexpr int width = partsPerElement<A>, lanes = laneCount<Words>;

 public:
  WordTaps(const A* taps, long n, int shift = 0)
      : taps_(parts(taps)), n_(n * width), shift_(shift) {}

  // For the numbers from k on in the window.
  [[gnu::always_inline]] Words from(long k) const {
    if constexpr (order == TapOrder::reversed) return words(taps_ + k);
    return shuffle<backward<lanes, width>>(words(taps_ + n_ - k - lanes));
  }
  // For one number.
  Mox16s at(long k) const {
    if constexpr (order == TapOrder::forward) k = n_ - width - k / width * width + k % width;
    return Mox16s(load<E>(taps_ + k) >> shift_);
  }

 private:
  [[gnu::always_inline]] Words words(const E* p) const {
    if constexpr (sizeof(E) == 2) {
      return load<Words>(p) >> shift_;
    } else {
      using Half = I<Mox32s>;
      return packInOrder<Mox16s>(load<Half>(p) >> shift_,
                                 load<Half>(p + laneCount<Half>) >> shift_);
    }
  }

  const E* taps_;
  long n_;
  int shift_;
};

// -1 in the lanes of imaginary parts.
inline I<Mox16s> imaginaryLanes() { return I<Mox16s>(broadcast<I<Mox32s>>(-0x10000)); }

inline Mox32s sumOfLanes(I<Mox32s> v) {
  Mox32u sum = 0;
  for (unsigned i = 0; i < laneCount<I<Mox32s>>; ++i) sum += Mox32u(v[i]);
  return Mox32s(sum);
}

// The sum over a window of n samples.
template <TapOrder order, class A>
Mox32s wrappingDot(const Mox16s* window, WordTaps<order, A> taps, long n) {
  constexpr int lanes = laneCount<I<Mox16s>>;
  I<Mox32s> sums[2] = {};
  long k = 0;
  const auto add = [&](I<Mox32s>& sum, long at) {
    sum = addWrapping(sum, multiplyAddPairs(load<I<Mox16s>>(window + at), taps.from(at)));
  };
  for (; k <= n - 2 * lanes; k += 2 * lanes) add(sums[0], k), add(sums[1], k + lanes);
  for (; k <= n - lanes; k += lanes) add(sums[0], k);
  Mox32u total = Mox32u(sumOfLanes(addWrapping(sums[0], sums[1])));
  for (; k < n; ++k) total += Mox32u(load<Mox16s>(window + k) * taps.at(k));
  return Mox32s(total);
}
template <TapOrder order, Complex A>
Mox32sc wrappingDot(const Mox16sc* window, WordTaps<order, A> taps, long n) {
  constexpr int lanes = laneCount<I<Mox16s>>;
  const Mox16s* const numbers = parts(window);
  I<Mox32s> re{}, im{};
  long k = 0;
  for (; k <= 2 * n - lanes; k += lanes) {
    const I<Mox16s> tap = taps.from(k), x = load<I<Mox16s>>(numbers + k);
    // There is no -d in 16 bits for every d, but there is ~d, which is -d - 1.
    const auto straight = multiplyAddPairs(x, tap ^ imaginaryLanes());
    re = addWrapping(re, addWrapping(straight, I<Mox32s>(x) >> 16));
    im = addWrapping(im, multiplyAddPairs(x, swapParts(tap)));
  }
  Mox32u realSum = Mox32u(sumOfLanes(re)), imaginarySum = Mox32u(sumOfLanes(im));
  for (; k < 2 * n; k += 2) {
    const Mox32s xRe = load<Mox16s>(numbers + k), xIm = load<Mox16s>(numbers + k + 1);
    const Mox32s tapRe = taps.at(k), tapIm = taps.at(k + 1);
    realSum += Mox32u(xRe * tapRe) - Mox32u(xIm * tapIm);
    imaginarySum += Mox32u(xRe * tapIm) + Mox32u(xIm * tapRe);
  }
  return {Mox32s(realSum), Mox32s(imaginarySum)};
}

// In the words of dot.h, for taps that a filter holds.
template <class Sum, TapOrder order>
requires std::is_same_v<Sum, Mox32s> Sum dotProduct(const Mox16s* window, const Mox16s* taps,
                                                    long n) {
  return wrappingDot(window, WordTaps<order, Mox16s>(taps, n), n);
}
template <class Sum, TapOrder order>
requires std::is_same_v<Sum, Mox32sc> Sum dotProduct(const Mox16sc* window, const Mox16sc* taps,
                                                     long n) {
  return wrappingDot(window, WordTaps<order, Mox16sc>(taps, n), n);
}

// dst[i] = sum over k of revTaps[k] * window[i + k], for 0 <= i < count. The parts of complex taps
// are above -32768.
void filterWindow(const Mox16s* window, Mox32s* dst, long count, const Mox16s* revTaps,
                  long tapsLen);
void filterWindow(const Mox16sc* window, Mox32sc* dst, long count, const Mox16sc* revTaps,
                  long tapsLen);

}  // namespace mox::kernels
