// The passes of the mixed-radix method, by decimation in time (Stockham's arrangement, which needs
// no reordering). Before a pass `rows` transforms of numbers radix * columns apart lie in rows:
// number k of the transform that starts at column t is at k * radix * columns + t. The pass joins
// those that start at t, t + columns, t + 2 * columns ...; the last one leaves a single column.
#pragma once

#include "transforms/dft_butterflies.h"
#include "transforms/dft_spec.h"
#include "transforms/dft_views.h"

namespace mox::transforms {

// Beyond the numbers of the last pass, which it reads in whole vectors.
template <class F>
constexpr long lastPassSlack(int radix) {
  return long(lanesOf<F>) * radix;
}

// A transform of a prime number of vectors.
template <class F>
[[gnu::noinline]] void primeButterfly(V<F>* a, const PrimeTable<F>& table);

namespace detail {

constexpr int mostAnyRadix = DftLimits<Mox64f>::mostLeaf;

// A radix is a constant of its type, or a number that only the plan knows.
template <class Radix>
constexpr int mostOf = mostAnyRadix;
template <int radix>
constexpr int mostOf<std::integral_constant<int, radix>> = radix;

template <int count, class Body>
[[gnu::always_inline]] inline void each(std::integral_constant<int, count>, Body body) {
  unrolled<count>(body);
}
template <class Body>
void each(int count, Body body) {
  for (int i = 0; i < count; ++i) body(i);
}

template <int radix, class F>
[[gnu::always_inline]] inline void transform(std::integral_constant<int, radix>, V<F> (&a)[radix],
                                             const DftPass<F>&) {
  butterfly<Direction::forward, F>(a);
}
template <class F>
void transform(int, V<F> (&a)[mostAnyRadix], const DftPass<F>& pass) {
  primeButterfly(a, *pass.prime);
}

// Where a pass puts its results: result c of a row goes to `apart` numbers behind result c - 1.
template <class Target>
[[gnu::always_inline]] inline Target rowOf(Target dst, long i) {
  return dst.from(i);
}
template <class Radix, class T, class Target>
[[gnu::always_inline]] inline void give(Radix radix, const T* a, Target to, long apart) {
  each(radix, [&](auto c) {
    to.putInterleaved(0, a[c]);
    to = to.from(apart);
  });
}

// Of real samples rows k and `rows` - k are conjugates, so that half of them are enough. Result c
// of row k is row k + c `rows` of the next pass; those beyond the middle are put as their
// conjugates, from the middle down. In the last pass rows are numbers.
template <class F_, bool last>
struct HalfRows {
  using F = F_;
  Array<ComplexOf<F>> up, down;

  HalfRows from(long t) const { return {up.from(t), down.from(t)}; }
};
template <class F, bool last>
[[gnu::always_inline]] inline HalfRows<F, last> rowOf(HalfRows<F, last> dst, long i) {
  return {dst.up.from(i), dst.down.from(-i)};
}
template <class Radix, class T, class F, bool last>
[[gnu::always_inline]] inline void give(Radix radix, const T* a, HalfRows<F, last> to, long apart) {
  each(radix, [&](auto c) {
    if (2 * c < radix) {
      to.up.putInterleaved(0, a[c]);
      to.up = to.up.from(apart);
    } else {
      constexpr long numbers = lanesOf<F> / 2;
      const T z = conjugated(a[c]);
      if constexpr (last)
        to.down.putInterleaved(1 - numbers, numbersReversed(z));
      else
        to.down.putInterleaved(0, z);
      to.down = to.down.from(-apart);
    }
  });
}
template <class Target>
constexpr bool isHalf = false;
template <class F, bool last>
constexpr bool isHalf<HalfRows<F, last>> = true;
template <class Target>
constexpr long rowsTaken(long rows) {
  return isHalf<Target> ? rows / 2 + 1 : rows;
}

// One row of a pass, over all columns; row 0 needs no twiddles.
template <bool turns, class F, class Radix, class Source, class Target>
[[gnu::always_inline]] inline void joinRow(Radix radix, Source src, Target dst, long apart,
                                           const F* twiddle, const DftPass<F>& pass) {
  const long columns = pass.columns;
  forVectors<F>(
      columns, [&](long t) __attribute__((always_inline)) {
        V<F> a[mostOf<Radix>];
        Source from = src.from(t);
        each(radix, [&](auto j) {
          a[j] = from.interleaved(0);
          from = from.from(columns);
          if constexpr (turns)
            if (j > 0)
              a[j] = times(a[j], broadcast<V<F>>(twiddle[2 * j - 2]),
                           broadcast<V<F>>(twiddle[2 * j - 1]));
        });
        transform(radix, a, pass);
        give(radix, a, dst.from(t), apart);
      });
}

// Vectors of numbers j, j + 1 ... of consecutive rows that start at `rows`.
template <class C>
[[gnu::always_inline]] inline void loadColumns(const C* rows, long radix, V<Mox32f> (&z)[4]) {
  using Half = V<Mox32f, 4>;
  const auto pair = [=](long row, long at) {
    return V<Mox64f>(join<V<Mox32f>>(load<Half>(rows + row * radix + at),
                                     load<Half>(rows + (row + 2) * radix + at)));
  };
  for (int at = 0; at < 4; at += 2) {
    const V<Mox64f> even = pair(0, at), odd = pair(1, at);
    z[at] = V<Mox32f>(unpackLow<Mox64f>(even, odd));
    z[at + 1] = V<Mox32f>(unpackHigh<Mox64f>(even, odd));
  }
}
template <class C>
[[gnu::always_inline]] inline void loadColumns(const C* rows, long radix, V<Mox64f> (&z)[2]) {
  using Half = V<Mox64f, 2>;
  for (int at = 0; at < 2; ++at)
    z[at] = join<V<Mox64f>>(load<Half>(rows + at), load<Half>(rows + radix + at));
}

}  // namespace detail

// Any pass but the last one. The first has a single row, the source's numbers; the others read work
// memory.
template <class F, class Radix, class Source, class Target>
[[gnu::always_inline]] inline void joinColumns(Radix radix, Source src, Target dst,
                                               const DftPass<F>& pass) {
  const long apart = long(pass.rows) * pass.columns, rows = detail::rowsTaken<Target>(pass.rows);
  detail::joinRow<false>(radix, src, dst, apart, pass.twiddle, pass);
  if constexpr (!std::is_same_v<Source, Array<const ComplexOf<F>>>) return;
  const F* twiddle = pass.twiddle;
  for (long k = 1; k < rows; ++k, twiddle += 2 * (radix - 1))
    detail::joinRow<true>(radix, src.from(k * radix * pass.columns),
                          detail::rowOf(dst, k * pass.columns), apart, twiddle, pass);
}

template <class F, class Radix, class Target>
[[gnu::always_inline]] inline void joinLast(Radix radix, Array<const ComplexOf<F>> src, Target dst,
                                            const DftPass<F>& pass) {
  constexpr int numbers = lanesOf<F> / 2;
  const F* twiddle = pass.twiddle;
  forVectors<F>(
      detail::rowsTaken<Target>(pass.rows), [&](long k) __attribute__((always_inline)) {
        V<F> a[detail::mostOf<Radix>], block[numbers];
        detail::each(radix, [&](auto j) {
          if (j % numbers == 0) detail::loadColumns(src.p + k * radix + j, radix, block);
          a[j] = block[j % numbers];
          if (j == 0) return;
          const V<F> w = load<V<F>>(twiddle + (j - 1) * lanesOf<F>);
          a[j] = times(a[j], realParts(w), imaginaryParts(w));
        });
        twiddle += (radix - 1) * lanesOf<F>;
        detail::transform(radix, a, pass);
        detail::give(radix, a, detail::rowOf(dst, k), pass.rows);
      });
}

}  // namespace mox::transforms
