// Small transforms over the elements of an array of pairs, scalars or vectors, in registers. Each
// product of complex numbers is two multiplications and one addition or subtraction for a part.
#pragma once

#include "transforms/fft_roots.h"
#include "transforms/fft_views.h"

namespace mox {

template <class T>
[[gnu::always_inline]] inline Pair<T> operator+(Pair<T> a, Pair<T> b) {
  return {a.re + b.re, a.im + b.im};
}
template <class T>
[[gnu::always_inline]] inline Pair<T> operator-(Pair<T> a, Pair<T> b) {
  return {a.re - b.re, a.im - b.im};
}

// z times the twiddle w as the tables have it, that of the forward direction.
template <Direction d, class T, class W>
[[gnu::always_inline]] inline Pair<T> twiddled(Pair<T> z, Pair<W> w) {
  if constexpr (d == Direction::forward)
    return {w.re * z.re - w.im * z.im, w.re * z.im + w.im * z.re};
  else
    return {w.re * z.re + w.im * z.im, w.re * z.im - w.im * z.re};
}

// z times -i forward, i inverse.
template <Direction d, class T>
[[gnu::always_inline]] inline Pair<T> quarterTurned(Pair<T> z) {
  if constexpr (d == Direction::forward)
    return {z.im, -z.re};
  else
    return {-z.im, z.re};
}

// a + b and a - b times a quarter turn, without a change of sign.
template <Direction d, class T>
[[gnu::always_inline]] inline Pair<T> plusQuarterTurned(Pair<T> a, Pair<T> b) {
  if constexpr (d == Direction::forward)
    return {a.re + b.im, a.im - b.re};
  else
    return {a.re - b.im, a.im + b.re};
}
template <Direction d, class T>
[[gnu::always_inline]] inline Pair<T> minusQuarterTurned(Pair<T> a, Pair<T> b) {
  constexpr Direction other = d == Direction::forward ? Direction::inverse : Direction::forward;
  return plusQuarterTurned<other>(a, b);
}

// z times exp(-2 pi i / 8) forward, its conjugate inverse.
template <Direction d, class F, class T>
[[gnu::always_inline]] inline Pair<T> eighthTurned(Pair<T> z) {
  constexpr F diagonal = F(sineOfTurn(1, 8));
  if constexpr (d == Direction::forward)
    return {diagonal * (z.re + z.im), diagonal * (z.im - z.re)};
  else
    return {diagonal * (z.re - z.im), diagonal * (z.im + z.re)};
}

// z times exp(-2 pi i k / n) forward, its conjugate inverse.
template <Direction d, int k, int n, class F, class T>
[[gnu::always_inline]] inline Pair<T> turned(Pair<T> z) {
  if constexpr (k == 0)
    return z;
  else if constexpr (4 * k == n)
    return quarterTurned<d>(z);
  else if constexpr (8 * k == n)
    return eighthTurned<d, F>(z);
  else
    return twiddled<d>(z, Pair<F>{F(cosineOfTurn(k, n)), F(-sineOfTurn(k, n))});
}

// The four outputs from the sums and differences of the outer and of the inner pair.
template <Direction d, class T>
struct Radix4 {
  Pair<T> out0, out1, out2, out3;
  [[gnu::always_inline]] Radix4(Pair<T> a, Pair<T> b, Pair<T> c, Pair<T> e) {
    const Pair<T> s = a + b, diff = a - b, t = c + e, u = c - e;
    out0 = s + t;
    out2 = s - t;
    out1 = plusQuarterTurned<d>(diff, u);
    out3 = minusQuarterTurned<d>(diff, u);
  }
};

// In place, over x[0], x[stride] and so on; F is the type of the constants.
template <Direction d, int n, int stride, class F, class T>
[[gnu::always_inline]] inline void dft(Pair<T>* x) {
  if constexpr (n == 2) {
    const Pair<T> a = x[0], b = x[stride];
    x[0] = a + b;
    x[stride] = a - b;
  } else if constexpr (n == 4) {
    const Radix4<d, T> r(x[0], x[2 * stride], x[stride], x[3 * stride]);
    x[0] = r.out0;
    x[stride] = r.out1;
    x[2 * stride] = r.out2;
    x[3 * stride] = r.out3;
  } else if constexpr (n == 8) {
    const auto at = [x](int i) -> Pair<T>& { return x[i * stride]; };
    const Radix4<d, T> even(at(0), at(4), at(2), at(6)), odd(at(1), at(5), at(3), at(7));
    const Pair<T> turned1 = eighthTurned<d, F>(odd.out1);
    const Pair<T> turned3 = eighthTurned<d, F>(odd.out3);
    at(0) = even.out0 + odd.out0;
    at(4) = even.out0 - odd.out0;
    at(1) = even.out1 + turned1;
    at(5) = even.out1 - turned1;
    at(2) = plusQuarterTurned<d>(even.out2, odd.out2);
    at(6) = minusQuarterTurned<d>(even.out2, odd.out2);
    at(3) = plusQuarterTurned<d>(even.out3, turned3);
    at(7) = minusQuarterTurned<d>(even.out3, turned3);
  } else if constexpr (n == 16) {
    // Columns of four, twiddles, rows of four; the transpose is left to the order of the result.
    [&]<int... j>(std::integer_sequence<int, j...>) {
      (dft<d, 4, 4 * stride, F>(x + j * stride), ...);
    }
    (std::make_integer_sequence<int, 4>());
    [&]<int... i>(std::integer_sequence<int, i...>) {
      ((x[i * stride] = turned<d, (i / 4) * (i % 4), 16, F>(x[i * stride])), ...);
    }
    (std::make_integer_sequence<int, 16>());
    [&]<int... j>(std::integer_sequence<int, j...>) {
      (dft<d, 4, stride, F>(x + 4 * j * stride), ...);
    }
    (std::make_integer_sequence<int, 4>());
  } else {
    static_assert(n == 1);
  }
}

// Where output k of dft<n> is.
template <int n>
constexpr int dftPlace(int k) {
  return n == 16 ? k % 4 * 4 + k / 4 : k;
}

// rows[i] becomes column i.
template <class T>
[[gnu::always_inline]] inline void transpose(T* rows) {
  constexpr int n = laneCount<T>;
  // Every step swaps one bit of the lane with the same bit of the row.
  const auto step = [rows]<int bit>(std::integral_constant<int, bit>) {
    for (int i = 0; i < n; ++i)
      if (!(i & bit)) {
        constexpr auto low = [](int k) { return k & bit ? k - bit + n : k; };
        constexpr auto high = [](int k) { return k & bit ? k + n : k + bit; };
        const T a = rows[i], b = rows[i + bit];
        rows[i] = shuffle<low>(a, b);
        rows[i + bit] = shuffle<high>(a, b);
      }
  };
  if constexpr (n >= 8) step(std::integral_constant<int, 4>());
  step(std::integral_constant<int, 2>());
  step(std::integral_constant<int, 1>());
}

}  // namespace mox
