// Sine and cosine of fractions of a turn at compile time, each correctly rounded to its format: the
// angle is held in 128 fractional bits and the series summed in integers.
#pragma once

#include "frame/elements.h"

namespace mox::transforms {
namespace detail {

__extension__ using Fixed = unsigned __int128;  // a number below 1 times 2^128

// The upper half of the product of two 128-bit numbers.
constexpr Fixed multiply(Fixed a, Fixed b) {
  const Fixed al = Mox64u(a), ah = a >> 64, bl = Mox64u(b), bh = b >> 64;
  const Fixed middle = ah * bl + (al * bl >> 64), other = al * bh + Mox64u(middle);
  return ah * bh + (middle >> 64) + (other >> 64);
}

// pi / 4: the first 128 of its fractional bits.
constexpr Fixed eighthTurn = Fixed(0xC90FDAA22168C234) << 64 | 0xC4C6628B80DC1CD1;

constexpr Fixed square(Fixed x) { return multiply(x, x); }

// x - x^3/3! + x^5/5! ... for x up to pi / 4.
constexpr Fixed sineSeries(Fixed x) {
  Fixed sum = 0, term = x;
  for (unsigned k = 1; term != 0; k += 4) {
    sum += term;
    term = multiply(term, square(x)) / ((k + 1) * (k + 2));
    sum -= term;
    term = multiply(term, square(x)) / ((k + 3) * (k + 4));
  }
  return sum;
}

// 1 - cos x = x^2/2! - x^4/4! ...
constexpr Fixed oneLessCosine(Fixed x) {
  Fixed sum = 0, term = square(x) / 2;
  for (unsigned k = 2; term != 0; k += 4) {
    sum += term;
    term = multiply(term, square(x)) / ((k + 1) * (k + 2));
    sum -= term;
    term = multiply(term, square(x)) / ((k + 3) * (k + 4));
  }
  return sum;
}

template <class F>
constexpr F rounded(Fixed x) {
  return F(x) * F(0x1p-64) * F(0x1p-64);
}

}  // namespace detail

// sin(pi / 4 * eighths / n) for 0 <= eighths <= 2 n.
template <class F>
constexpr F sineOfEighths(long eighths, long n) {
  if (eighths == 0) return 0;
  if (eighths == 2 * n) return 1;
  const auto angle = [n](long i) { return detail::eighthTurn / Mox64u(n) * Mox64u(i); };
  if (eighths <= n) return detail::rounded<F>(detail::sineSeries(angle(eighths)));
  return detail::rounded<F>(-detail::oneLessCosine(angle(2 * n - eighths)));
}

// sin(2 pi i / n) for 0 <= i <= n/4.
template <class F>
constexpr F sineOfTurn(long i, long n) {
  return sineOfEighths<F>(8 * i, n);
}

template <class F>
struct Twiddle {
  F re, im;
};

namespace detail {
template <class F>
constexpr Twiddle<F> twiddleOfEighths(long eighths, long n) {
  if (eighths <= 2 * n)
    return {sineOfEighths<F>(2 * n - eighths, n), -sineOfEighths<F>(eighths, n)};
  const auto before = twiddleOfEighths<F>(eighths - 2 * n, n);  // a quarter turn back: times -i
  return {before.im, -before.re};
}
}  // namespace detail

// exp(-2 pi i k / n) for 0 <= k < n.
template <class F>
constexpr Twiddle<F> twiddleOf(long k, long n) {
  return detail::twiddleOfEighths<F>(8 * k, n);
}

}  // namespace mox::transforms
