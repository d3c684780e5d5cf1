// One level of the Haar transform. Floats form the low band from the high band, as their inverse
// expects; integers scale exact sums and differences. Pairs are seen as complex numbers.
#include <moxsp/wavelet.h>

#include <climits>

#include "frame/export.h"
#include "frame/map_scaled.h"
#include "wavelet/pairs.h"

namespace mox::wavelet {
namespace {

template <class E>
MoxStatus forwardFloats(const E* src, int len, E* low, E* high) {
  if (MoxStatus s = checkArrays(len, src, low, high)) return s;
  const auto put = [=]<class T>(long i, Pair<T> x) {
    const T h = (x.im - x.re) * E(0.5);
    store(high + i, h);
    store(low + i, x.re + h);
  };
  splitPairs<lanesOf<E>>(
      len / 2, [=](long i) { put(i, loadDeinterleaved<V<E>>(src + 2 * i)); },
      [=](long i) {
        put(i, Pair<E>{load<E>(src + 2 * i), load<E>(src + 2 * i + 1)});
      });
  if (len % 2) store(low + len / 2, load<E>(src + len - 1));
  return moxOk;
}

template <class E>
MoxStatus inverseFloats(const E* low, const E* high, E* dst, int len) {
  if (MoxStatus s = checkArrays(len, low, high, dst)) return s;
  joinPairs<lanesOf<E>>(
      dst, len / 2,
      [=](long i) {
        const auto l = inRegister(load<V<E>>(low + i)), h = inRegister(load<V<E>>(high + i));
        return Pair{l - h, l + h};
      },
      [=](long i) {
        const E l = load<E>(low + i), h = load<E>(high + i);
        store(dst + 2 * i, l - h);
        store(dst + 2 * i + 1, l + h);
      });
  if (len % 2) store(dst + len - 1, load<E>(low + len / 2));
  return moxOk;
}

// Sums and differences of two integers are up to 2^bound. Registers hold them in lanes of twice the
// width, those of 32 bits as doubles.
template <class E>
constexpr int bound = 8 * sizeof(E);
template <class E>
using Lanes = std::conditional_t<sizeof(E) == 1, I<Mox16s>, ExactVector<bound<E>>>;

// Results of a step: those of two vectors of lanes that a pack joins, or of one.
template <class E>
constexpr int registers = sizeof(E) < 4 ? 2 : 1;
template <class E>
constexpr int step = registers<E>* laneCount<Lanes<E>>;

template <class E>
Pair<Lanes<E>> loadPairs(const E* src) {
  if constexpr (sizeof(E) == 1) {
    const auto pairs = load<I<Mox16s>>(src);
    return {I<Mox16s>(I<Mox16u>(pairs) << 8) >> 8, pairs >> 8};
  } else {
    return loadDeinterleavedAs<Lanes<E>>(src);
  }
}
template <class E>
V<E, step<E>> saturated(const Lanes<E> (&r)[registers<E>]) {
  if constexpr (registers<E> == 1)
    return saturate<E>(r[0]);
  else
    return packInOrder<E>(r[0], r[1]);
}
// Pairs that are used as they are.
constexpr auto unchanged = [](auto x) { return x; };

// Sums and differences times 2^-exponent.
template <class E, class Adjust = decltype(unchanged)>
void forwardIntegers(const E* src, int len, E* low, E* high, int exponent, Adjust adjusted = {}) {
  using R = Exact<bound<E>>;
  Scale<E, bound<E>>(exponent).withRule([&](auto rule) __attribute__((always_inline)) {
    const auto one = [&](long i) {
      const auto x = adjusted(Pair<R>{load<E>(src + 2 * i), load<E>(src + 2 * i + 1)});
      store(low + i, saturate<E>(rule(x.re + x.im)));
      store(high + i, saturate<E>(rule(x.im - x.re)));
    };
    if constexpr (!hasExactVector<bound<E>>)
      for (long i = 0; i < len / 2; ++i) one(i);
    else
      splitPairs<step<E>>(
          len / 2,
          [&](long i) {
            Lanes<E> sums[registers<E>], differences[registers<E>];
            for (int j = 0; j < registers<E>; ++j) {
              const auto x = adjusted(loadPairs(src + 2 * (i + j * laneCount<Lanes<E>>)));
              sums[j] = rule(x.re + x.im);
              differences[j] = rule(x.im - x.re);
            }
            store(low + i, saturated<E>(sums));
            store(high + i, saturated<E>(differences));
          },
          one);
    if (len % 2) store(low + len / 2, saturate<E>(rule(2 * R(load<E>(src + len - 1)))));
  });
}

// The differences and sums of both bands times 2^-exponent.
template <class E>
void inverseIntegers(const E* low, const E* high, E* dst, int len, int exponent) {
  using R = Exact<bound<E>>;
  Scale<E, bound<E>>(exponent).withRule([&](auto rule) __attribute__((always_inline)) {
    const auto one = [&](long i) {
      const R l = load<E>(low + i), h = load<E>(high + i);
      store(dst + 2 * i, saturate<E>(rule(l - h)));
      store(dst + 2 * i + 1, saturate<E>(rule(l + h)));
    };
    if constexpr (!hasExactVector<bound<E>>)
      for (long i = 0; i < len / 2; ++i) one(i);
    else
      joinPairs<step<E>>(
          dst, len / 2,
          [&](long i) {
            Lanes<E> first[registers<E>], second[registers<E>];
            for (int j = 0; j < registers<E>; ++j) {
              const auto l = loadWidened<Lanes<E>>(low + i + j * laneCount<Lanes<E>>),
                         h = loadWidened<Lanes<E>>(high + i + j * laneCount<Lanes<E>>);
              first[j] = rule(l - h);
              second[j] = rule(l + h);
            }
            return Pair{saturated<E>(first), saturated<E>(second)};
          },
          one);
    if (len % 2) store(dst + len - 1, saturate<E>(rule(R(load<E>(low + len / 2)))));
  });
}

template <class E>
MoxStatus forward(const E* src, int len, E* low, E* high) {
  if (MoxStatus s = checkArrays(len, src, low, high)) return s;
  forwardIntegers(src, len, low, high, 1);
  return moxOk;
}

// A pair within one of both limits counts as the limits.
template <>
MoxStatus forward(const Mox32s* src, int len, Mox32s* low, Mox32s* high) {
  if (MoxStatus s = checkArrays(len, src, low, high)) return s;
  forwardIntegers(src, len, low, high, 1, []<class T>(Pair<T> x) {
    const auto atLimits = (x.re <= INT_MIN + 1) & (x.im >= INT_MAX - 1);
    return Pair<T>{atLimits ? T{} + INT_MIN : x.re, atLimits ? T{} + INT_MAX : x.im};
  });
  return moxOk;
}

template <class E>
MoxStatus forwardScaled(const E* src, int len, E* low, E* high, int scaleFactor) {
  if (scaleFactor == 0) return forward(src, len, low, high);
  if (MoxStatus s = checkArrays(len, src, low, high)) return s;
  if (len == 1)
    store(low, load<E>(src));
  else
    forwardIntegers(src, len, low, high, scaleFactor < INT_MAX ? scaleFactor + 1 : INT_MAX);
  return moxOk;
}

template <class E>
MoxStatus inverseScaled(const E* low, const E* high, E* dst, int len, int scaleFactor) {
  if (MoxStatus s = checkArrays(len, low, high, dst)) return s;
  inverseIntegers(low, high, dst, len, len == 1 ? 0 : scaleFactor);
  return moxOk;
}
template <class E>
MoxStatus inverse(const E* low, const E* high, E* dst, int len) {
  return inverseScaled(low, high, dst, len, 0);
}

}  // namespace

MOX_EXPORT(moxsWTHaarFwd_32f, forwardFloats);
MOX_EXPORT(moxsWTHaarFwd_64f, forwardFloats);
MOX_EXPORT(moxsWTHaarFwd_8s, forward);
MOX_EXPORT(moxsWTHaarFwd_16s, forward);
MOX_EXPORT(moxsWTHaarFwd_32s, forward);
MOX_EXPORT(moxsWTHaarFwd_64s, forward);
MOX_EXPORT(moxsWTHaarFwd_8s_Sfs, forwardScaled);
MOX_EXPORT(moxsWTHaarFwd_16s_Sfs, forwardScaled);
MOX_EXPORT(moxsWTHaarFwd_32s_Sfs, forwardScaled);
MOX_EXPORT(moxsWTHaarFwd_64s_Sfs, forwardScaled);

MOX_EXPORT(moxsWTHaarInv_32f, inverseFloats);
MOX_EXPORT(moxsWTHaarInv_64f, inverseFloats);
MOX_EXPORT(moxsWTHaarInv_8s, inverse);
MOX_EXPORT(moxsWTHaarInv_16s, inverse);
MOX_EXPORT(moxsWTHaarInv_32s, inverse);
MOX_EXPORT(moxsWTHaarInv_64s, inverse);
MOX_EXPORT(moxsWTHaarInv_8s_Sfs, inverseScaled);
MOX_EXPORT(moxsWTHaarInv_16s_Sfs, inverseScaled);
MOX_EXPORT(moxsWTHaarInv_32s_Sfs, inverseScaled);
MOX_EXPORT(moxsWTHaarInv_64s_Sfs, inverseScaled);

}  // namespace mox::wavelet
