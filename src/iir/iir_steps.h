// One sample at a time: the transposed direct form II, and direct form I.
#pragma once

#include "iir/iir_state.h"

namespace mox::iir {

// The type in which numbers of a state are computed.
template <class E>
Scalar<E> numberAt(const E* p) {
  return load<Scalar<E>>(p);
}

// y[0] = b[0] x + d[0]; d[i] = b[i+1] x - a[i+1] y + d[i+1], from left to right.
template <class E>
Scalar<E> transposedStep(const E* taps, int order, E* d, Scalar<E> x) {
  using S = Scalar<E>;
  const E *const b = taps, *const a = taps + order;  // a[1] is behind b[order]
  const S y = times(numberAt(b), x) + numberAt(d);
  const auto sum = [&](int i) {
    return times(numberAt(b + i + 1), x) - times(numberAt(a + i + 1), y);
  };
  int i = 0;
  if constexpr (!Complex<E>) {
    using T = V<E>;
    const T xs = broadcast<T>(x), ys = broadcast<T>(y);
    for (; i < order - lanesOf<E>; i += lanesOf<E>)
      store(d + i, load<T>(b + i + 1) * xs - load<T>(a + i + 1) * ys + load<T>(d + i + 1));
  }
  for (; i < order - 1; ++i) store(d + i, sum(i) + numberAt(d + i + 1));
  store(d + i, sum(i));
  return y;
}

// Sections of order 2 on their last two inputs and outputs.
template <class E>
Scalar<E> directStep(const E* taps, E* past, Scalar<E> x) {
  const auto term = [=](int tap, int sample) {
    return times(numberAt(taps + tap), numberAt(past + sample));
  };
  const Scalar<E> y = times(numberAt(taps), x) + term(1, 1) + term(2, 0) - term(4, 2) - term(3, 3);
  store(past, numberAt(past + 1)), store(past + 1, x);
  store(past + 2, numberAt(past + 3)), store(past + 3, y);
  return y;
}

// All sections of a cascade, each on the output of the one before it. `see` is told what goes into
// each section and what comes out.
template <class E, class See>
Scalar<E> step(State<E>& s, Scalar<E> x, See see) {
  for (int k = 0; k < s.sections; ++k) {
    const E* const taps = s.taps + s.tapsOf(k);
    const Scalar<E> y = s.isDirectForm1
                            ? directStep(taps, s.past + s.pastOf(k), x)
                            : transposedStep(taps, s.order, s.dlyLine + long(s.order) * k, x);
    see(k, x, y);
    x = y;
  }
  return x;
}
template <class E>
Scalar<E> step(State<E>& s, Scalar<E> x) {
  return step(s, x, [](auto...) {});
}

// The same steps of one section of order 2, which keeps its sums in registers.
template <class E>
void filterSectionInSteps(const E* taps, E* d, const E* src, E* dst, long len) {
  using S = Scalar<E>;
  S tap[5], d0 = numberAt(d), d1 = numberAt(d + 1);
  for (int k = 0; k < 5; ++k) tap[k] = numberAt(taps + k);
  for (long i = 0; i < len; ++i) {
    const S x = numberAt(src + i), y = times(tap[0], x) + d0;
    d0 = times(tap[1], x) - times(tap[3], y) + d1;
    d1 = times(tap[2], x) - times(tap[4], y);
    store(dst + i, y);
  }
  store(d, d0), store(d + 1, d1);
}

template <class E>
void filterInSteps(State<E>& s, const E* src, E* dst, long len) {
  if (s.order == 2 && !s.isDirectForm1)
    for (int k = 0; k < s.sections; ++k)
      filterSectionInSteps(s.taps + s.tapsOf(k), s.dlyLine + 2L * k, k ? dst : src, dst, len);
  else
    for (long i = 0; i < len; ++i) store(dst + i, step(s, numberAt(src + i)));
}

// Blocks go on from past inputs and outputs. Direct form I has them; else the first samples are
// filtered in steps to get them.
template <class E>
int samplesToSetOff(const State<E>& s) {
  return s.isDirectForm1 ? 0 : s.order;
}
template <class E>
void setOff(State<E>& s, const E* src, E* dst) {
  for (int i = 0; i < samplesToSetOff(s); ++i)
    store(dst + i, step(s, numberAt(src + i), [&](int k, Scalar<E> x, Scalar<E> y) {
            E* const past = s.past + s.pastOf(k);
            store(past + i, x), store(past + s.order + i, y);
          }));
}

// The sums that the past adds to the next outputs.
template <class E>
void refillDelayLine(State<E>& s) {
  if (s.isDirectForm1) return;
  const int n = s.order;
  for (int k = 0; k < s.sections; ++k) {
    const E *const b = s.taps + s.tapsOf(k), *const a = b + n;
    const E *const x = s.past + s.pastOf(k) - 1, *const y = x + n;  // x[n], y[n] are the newest
    for (int i = 0; i < n; ++i) {
      Scalar<E> sum{};
      for (int j = i + 1; j <= n; ++j)
        sum = sum + times(numberAt(b + j), numberAt(x + n + i + 1 - j));
      for (int j = i + 1; j <= n; ++j)
        sum = sum - times(numberAt(a + j), numberAt(y + n + i + 1 - j));
      store(s.dlyLine + long(n) * k + i, sum);
    }
  }
}

}  // namespace mox::iir
