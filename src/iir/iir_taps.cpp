#include "iir/iir_taps.h"

#include <cmath>
#include <limits>

namespace mox::iir {
namespace {

template <class E>
bool equals(E e, Part<E> real) {
  if constexpr (Complex<E>)
    return e.re == real && e.im == 0;
  else
    return e == real;
}

// In the type of the taps; of a complex number by Smith's method, which no square overflows.
template <class F>
F reciprocal(F x) {
  return 1 / x;
}
template <class F>
Pair<F> reciprocal(Pair<F> z) {
  if (std::fabs(z.re) >= std::fabs(z.im)) {
    const F ratio = z.im / z.re, scale = 1 / (z.re + z.im * ratio);
    return {scale, -ratio * scale};
  }
  const F ratio = z.re / z.im, scale = 1 / (z.im + z.re * ratio);
  return {ratio * scale, -scale};
}

// All taps but a[0].
template <class E>
void normalise(const E* taps, int order, E* held) {
  const E* const a0 = taps + order + 1;
  const bool copies = equals(load<E>(a0), 1);
  const auto factor = reciprocal(load<Scalar<E>>(a0));
  for (int k = 0; k <= 2 * order; ++k) {
    const auto tap = load<Scalar<E>>(taps + k + (k > order ? 1 : 0));
    store(held + k, copies ? tap : times(tap, factor));
  }
}

// Errors of a response come again with every stretch, so it has the digits to be rounded once.
using Number = long double;

// Responses beyond this are left to single steps: they would soon be infinite, and an infinity
// times a zero is no number.
constexpr Number mostResponse = 0x1p32;

// The sum of the weights of an output, compared with that of the first one. It bounds the rounding
// errors that stretches of other orders than 2 add to those of the recursion.
constexpr Number mostGrowth = 16;

Number largestPart(Number value) { return std::fabs(value); }
Number largestPart(Pair<Number> value) {
  return std::max(std::fabs(value.re), std::fabs(value.im));
}

// What is too small for a normal number is nothing: arithmetic on subnormal ones is slow.
template <class F>
bool roundInto(Number value, F* to) {
  *to = std::fabs(value) < std::numeric_limits<F>::min() ? F(0) : F(value);
  return std::fabs(value) <= mostResponse;
}
template <class F>
bool roundInto(Pair<Number> value, ComplexOf<F>* to) {
  const bool re = roundInto(value.re, &to->re), im = roundInto(value.im, &to->im);
  return re && im;
}

// R[k][j] is the weight of y[-1-k] in y[j] where nothing else enters: R[k][0] = -a[k+1], and one
// step on y[0] stands in for y[-1], so that R[k][j] = R[0][j-1] R[k][0] + R[k+1][j-1]. Order 2
// holds the weights R[0][j] + R[1][j] of y[-1] and -R[1][j] of y[-1] - y[-2]: poles near 1 make R
// large, of opposite signs, and outputs that hardly differ. Returns for how many outputs j weights
// are held.
template <class E>
int respond(const E* a, int order, E* response) {
  using Wide = std::conditional_t<Complex<E>, Pair<Number>, Number>;
  Wide first[mostOrder], weights[mostOrder + 1] = {};
  for (int k = 0; k < order; ++k) {
    const auto tap = load<Scalar<E>>(a + k);
    if constexpr (Complex<E>)
      first[k] = {-Number(tap.re), -Number(tap.im)};
    else
      first[k] = -Number(tap);
    weights[k] = first[k];
  }
  Number limit = 0;
  for (int j = 0; j < mostLength; ++j) {
    const auto hold = [&](int k, Wide weight) {
      return roundInto<Part<E>>(weight, response + k * responseStride + j);
    };
    bool held = true;
    Number sum = 0;
    if (order == 2)
      held = hold(0, weights[0] + weights[1]) && hold(1, weights[2] - weights[1]);
    else
      for (int k = 0; k < order; ++k) {
        held = hold(k, weights[k]) && held;
        sum += largestPart(weights[k]);
      }
    if (j == 0) limit = mostGrowth * std::max<Number>(1, sum);
    if (!held || sum > limit) return j;
    const Wide newest = weights[0];
    for (int k = 0; k < order; ++k) weights[k] = times(newest, first[k]) + weights[k + 1];
  }
  return mostLength;
}

}  // namespace

template <class E>
MoxStatus setTaps(State<E>& s, const E* taps, bool isCascade) {
  const int n = s.order;
  MoxStatus status = moxOk;
  for (int k = 0; k < s.sections && status == moxOk; ++k) {
    const E* const given = taps + 2L * (n + 1) * k;
    E* const held = s.taps + s.tapsOf(k);
    if (equals(load<E>(given + n + 1), 0) || (isCascade && equals(load<E>(given), 0))) {
      status = moxErrDivByZero;
    } else {
      normalise(given, n, held);
      if (s.filtersStretches) s.reach[k] = respond(held + n + 1, n, s.response + s.responseOf(k));
    }
  }
  if (s.filtersStretches) s.length = *std::min_element(s.reach, s.reach + s.sections);
  return status;
}

template MoxStatus setTaps(State<Mox32f>&, const Mox32f*, bool);
template MoxStatus setTaps(State<Mox64f>&, const Mox64f*, bool);
template MoxStatus setTaps(State<Mox32fc>&, const Mox32fc*, bool);
template MoxStatus setTaps(State<Mox64fc>&, const Mox64fc*, bool);

}  // namespace mox::iir
