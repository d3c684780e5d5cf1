// Straight-line transforms of 2^order numbers for orders 0 to 8. Each reads all of its source
// before it writes, so that source and destination may be one array.
#pragma once

#include "transforms/dft_butterflies.h"
#include "transforms/fft_spec.h"
#include "transforms/fft_views.h"
#include "transforms/turn.h"

namespace mox::transforms {
namespace detail {

// Each row's numbers become columns.
[[gnu::always_inline]] inline void transposeNumbers(V<Mox32f> (&z)[4]) {
  V<Mox64f> r[4] = {V<Mox64f>(z[0]), V<Mox64f>(z[1]), V<Mox64f>(z[2]), V<Mox64f>(z[3])};
  transpose(r);
  for (int i = 0; i < 4; ++i) z[i] = V<Mox32f>(r[i]);
}
[[gnu::always_inline]] inline void transposeNumbers(V<Mox64f> (&z)[2]) {
  const V<Mox64f> first = joinLow(z[0], z[1]);
  z[1] = joinHigh(z[0], z[1]);
  z[0] = first;
}

// exp(-2 pi i r c / n), or its conjugate, for the rows r from 1 on and the columns c: real parts
// twice, and imaginary parts as times() takes them.
template <class F, int rows, int columns, Direction direction>
struct RowTwiddles {
  alignas(vectorBytes) F re[rows - 1][2 * columns], im[rows - 1][2 * columns];

  constexpr RowTwiddles() : re{}, im{} {
    for (int r = 1; r < rows; ++r)
      for (int c = 0; c < columns; ++c) {
        const auto w = twiddleOf<F>(r * c, rows * columns);
        const F turned = direction == Direction::forward ? w.im : -w.im;
        re[r - 1][2 * c] = re[r - 1][2 * c + 1] = w.re;
        im[r - 1][2 * c] = im[r - 1][2 * c + 1] = turned;
      }
  }
};
template <class F, int rows, int columns, Direction direction>
constexpr RowTwiddles<F, rows, columns, direction> rowTwiddles;

// Number n = columns * r + c is turned over the rows, then over the columns.
template <Direction direction, bool scaled, int rows, int columns, class Source, class Target,
          class F>
[[gnu::flatten]] void smallInRows(Source src, Target dst, F factor) {
  constexpr int width = (lanesOf<F> / 2);
  constexpr const auto& twiddles = rowTwiddles<F, rows, columns, direction>;
  V<F> turned[columns][rows / width];
// Rolled up, GCC loads the twiddles of each round in the one before, and keeps them on the stack.
#pragma GCC unroll 8
  for (int v = 0; v < columns / width; ++v) {
    V<F> a[rows];
    for (int r = 0; r < rows; ++r) a[r] = inRegister(src.interleaved(r * columns + v * width));
    butterfly<direction, F>(a);
    for (int r = 1; r < rows; ++r)
      a[r] = times(a[r], load<V<F>>(twiddles.re[r - 1] + 2 * v * width),
                   load<V<F>>(twiddles.im[r - 1] + 2 * v * width));
    for (int g = 0; g < rows / width; ++g) {
      V<F> square[width];
      for (int i = 0; i < width; ++i) square[i] = a[g * width + i];
      transposeNumbers(square);
      for (int i = 0; i < width; ++i) turned[v * width + i][g] = square[i];
    }
  }
  for (int g = 0; g < rows / width; ++g) {
    V<F> a[columns];
    for (int c = 0; c < columns; ++c) a[c] = turned[c][g];
    butterfly<direction, F>(a);
    for (int c = 0; c < columns; ++c) {
      if constexpr (scaled) a[c] = a[c] * factor;
      dst.putInterleaved(c * rows + g * width, a[c]);
    }
  }
}

template <Direction direction, bool scaled, int order, class Source, class Target, class F>
void smallTransform(Source src, Target dst, F factor) {
  if constexpr (order <= 3) {
    constexpr int n = 1 << order;
    decltype(loadNumber(src, 0)) a[n];
    for (int i = 0; i < n; ++i) a[i] = loadNumber(src, i);
    butterfly<direction, F>(a);
    for (int i = 0; i < n; ++i) storeNumber(dst, i, scaled ? a[i] * factor : a[i]);
  } else {
    constexpr int rows = order < 7 ? 4 : 16, columns = (1 << order) / rows;
    smallInRows<direction, scaled, rows, columns>(src, dst, factor);
  }
}

}  // namespace detail

// Kernels by order; `factor` multiplies the result in the scaled ones only.
template <Direction direction, class View>
struct SmallTransforms {
  using F = typename View::F;
  using Source = typename View::Const;
  using Kernel = void (*)(Source src, View dst, F factor);
  Kernel plain[fftMaxSmallOrder + 1], scaled[fftMaxSmallOrder + 1];

  constexpr SmallTransforms() : plain{}, scaled{} {
    fill(std::make_integer_sequence<int, fftMaxSmallOrder + 1>());
  }

 private:
  template <int... order>
  constexpr void fill(std::integer_sequence<int, order...>) {
    ((plain[order] = detail::smallTransform<direction, false, order, Source, View, F>), ...);
    ((scaled[order] = detail::smallTransform<direction, true, order, Source, View, F>), ...);
  }
};
template <Direction direction, class View>
constexpr SmallTransforms<direction, View> ownFftSmall;

}  // namespace mox::transforms
