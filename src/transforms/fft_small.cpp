// Straight-line kernels: all data in registers or on the stack, twiddles as constants.
#include "transforms/fft_butterflies.h"
#include "transforms/fft_complex.h"

namespace mox {
namespace {

struct Unscaled {};

template <class T>
Pair<T> scaled(Pair<T> z, Unscaled) {
  return z;
}
template <class T, class F>
Pair<T> scaled(Pair<T> z, F factor) {
  return {z.re * factor, z.im * factor};
}

// exp(-2 pi i k n / N) for the rows k and, by lanes, the columns n of a transform of N elements.
template <class F, int rows, int columns, template <class> class Layout>
struct Twist {
  alignas(vectorBytes) F re[rows][columns], im[rows][columns];
  constexpr Twist() : re(), im() {
    for (int k = 0; k < rows; ++k)
      for (int lane = 0; lane < columns; ++lane) {
        const int n = Layout<F>::template column<columns>(lane);
        re[k][lane] = F(cosineOfTurn(k * n, rows * columns));
        im[k][lane] = F(-sineOfTurn(k * n, rows * columns));
      }
  }
};

// With element rows * columns as n = columns * n1 + n2 and k = k1 + rows * k2: transforms over n1,
// twiddles, transforms over n2. The transpose between them takes rows in the order that stores
// want.
template <class F, Direction d, template <class> class Layout, int rows, int columns, class Factor>
[[gnu::always_inline]] inline void twoSteps(Layout<const F> src, Layout<F> dst, Factor factor) {
  using T = V<F, columns>;
  static constexpr Twist<F, rows, columns, Layout> twist;
  constexpr auto column = [](int lane) { return Layout<F>::template column<columns>(lane); };
  Pair<T> x[rows];
  for (int i = 0; i < rows; ++i) x[i] = src.template loadParted<T>(columns * i);
  dft<d, rows, 1, F>(x);
  for (int k = 1; k < rows; ++k) {
    Pair<T>& z = x[dftPlace<rows>(k)];
    z = twiddled<d>(z, Pair<T>{load<T>(twist.re[k]), load<T>(twist.im[k])});
  }
  Pair<T> y[rows];
  for (int block = 0; block < rows; block += columns) {
    T re[columns], im[columns];
    for (int i = 0; i < columns; ++i) {
      const Pair<T>& z = x[dftPlace<rows>(block + column(i))];
      re[i] = z.re;
      im[i] = z.im;
    }
    transpose(re);
    transpose(im);
    for (int i = 0; i < columns; ++i) y[block + column(i)] = {re[i], im[i]};
  }
  for (int block = 0; block < rows; block += columns) {
    dft<d, columns, 1, F>(y + block);
    for (int k = 0; k < columns; ++k)
      dst.storeParted(rows * k + block, scaled(y[block + k], factor));
  }
}

template <class F, Direction d, template <class> class Layout, int order, class Factor>
void small(Layout<const F> src, Layout<F> dst, Factor factor) {
  constexpr int n = 1 << order;
  if constexpr (order <= 3) {
    Pair<F> x[n];
    for (int i = 0; i < n; ++i) x[i] = src.template loadParted<F>(i);
    dft<d, n, 1, F>(x);
    for (int i = 0; i < n; ++i) dst.storeParted(i, scaled(x[i], factor));
  } else {
    constexpr int columns = n >= lanesOf<F> * lanesOf<F> ? lanesOf<F> : 4;
    twoSteps<F, d, Layout, n / columns, columns>(src, dst, factor);
  }
}

template <class F, Direction d, template <class> class Layout, int order>
void smallPlain(Layout<const F> src, Layout<F> dst) {
  small<F, d, Layout, order>(src, dst, Unscaled());
}
template <class F, Direction d, template <class> class Layout, int order>
void smallScaled(Layout<const F> src, Layout<F> dst, F factor) {
  small<F, d, Layout, order>(src, dst, factor);
}

}  // namespace

template <class F, Direction d, template <class> class Layout>
const typename ownFftSmall<F, d, Layout>::Kernel ownFftSmall<F, d, Layout>::plain[] = {
    smallPlain<F, d, Layout, 0>, smallPlain<F, d, Layout, 1>, smallPlain<F, d, Layout, 2>,
    smallPlain<F, d, Layout, 3>, smallPlain<F, d, Layout, 4>, smallPlain<F, d, Layout, 5>,
    smallPlain<F, d, Layout, 6>};
template <class F, Direction d, template <class> class Layout>
const typename ownFftSmall<F, d, Layout>::ScaledKernel ownFftSmall<F, d, Layout>::scaled[] = {
    smallScaled<F, d, Layout, 0>, smallScaled<F, d, Layout, 1>, smallScaled<F, d, Layout, 2>,
    smallScaled<F, d, Layout, 3>, smallScaled<F, d, Layout, 4>, smallScaled<F, d, Layout, 5>,
    smallScaled<F, d, Layout, 6>};

template struct ownFftSmall<Mox32f, Direction::forward, Interleaved>;
template struct ownFftSmall<Mox32f, Direction::inverse, Interleaved>;
template struct ownFftSmall<Mox32f, Direction::forward, Split>;
template struct ownFftSmall<Mox32f, Direction::inverse, Split>;
template struct ownFftSmall<Mox64f, Direction::forward, Interleaved>;
template struct ownFftSmall<Mox64f, Direction::inverse, Interleaved>;
template struct ownFftSmall<Mox64f, Direction::forward, Split>;
template struct ownFftSmall<Mox64f, Direction::inverse, Split>;

}  // namespace mox
