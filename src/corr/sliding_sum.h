// What convolution and correlation have in common: one signal, the taps, slides along the other.
#pragma once

#include <algorithm>
#include <cstring>

#include "frame/elements.h"
#include "frame/export.h"
#include "frame/vec/vec.h"

namespace mox::corr {

enum class Kind { convolution, correlation };

// Output i is the sum over k of tap(k) * x[first + i + k], where x is 0 outside of its samples.
template <class E>
struct SlidingSum {
  Kind kind;
  const E* taps;
  long tapsLen;
  const E* x;
  long len;
  long first;

  E tap(long k) const {
    if (kind == Kind::convolution) return load<E>(taps + tapsLen - 1 - k);
    E tap = load<E>(taps + k);
    if constexpr (Complex<E>) tap.im = -tap.im;
    return tap;
  }

  // Samples from i on.
  void take(long i, long count, E* to) const {
    const long from = std::clamp(-i, 0L, count), end = std::clamp(len - i, from, count);
    std::fill(to, to + from, E{});
    std::memcpy(to + from, x + i + from, std::size_t(end - from) * sizeof(E));
    std::fill(to + end, to + count, E{});
  }
};

// `count` outputs. Each is the sum of those terms that have both factors.
template <class E>
void sumDirectly(const SlidingSum<E>& sum, E* dst, long count);

// How a sum is made: what callers name by an algorithm selector.
enum class Method { automatic, direct, fft };
constexpr bool isMethod(int selector) { return unsigned(selector) <= unsigned(Method::fft); }

}  // namespace mox::corr
