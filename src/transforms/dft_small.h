// Straight-line transforms of 1 to 16 numbers. Each reads all of its source before it writes, so
// that source and destination may be one array.
#pragma once

#include "frame/kernel_table.h"
#include "transforms/dft_butterflies.h"
#include "transforms/dft_views.h"

namespace mox::transforms {
namespace detail {

// One number in half a register, its parts side by side; or in two registers, where memory has them
// apart.
[[gnu::always_inline]] inline V<Mox32f, 4> loadNumber(Array<const Mox32fc> view, long i) {
  return V<Mox32f, 4>(V<Mox64f, 2>{load<Mox64f>(view.p + i), 0});
}
[[gnu::always_inline]] inline void storeNumber(Array<Mox32fc> view, long i, V<Mox32f, 4> z) {
  store(view.p + i, V<Mox64f, 2>(z)[0]);
}
[[gnu::always_inline]] inline V<Mox64f, 2> loadNumber(Array<const Mox64fc> view, long i) {
  return load<V<Mox64f, 2>>(view.p + i);
}
[[gnu::always_inline]] inline void storeNumber(Array<Mox64fc> view, long i, V<Mox64f, 2> z) {
  store(view.p + i, z);
}
template <class F>
[[gnu::always_inline]] inline Pair<F> loadNumber(Split<const F> view, long i) {
  return view.number(i);
}
template <class F>
[[gnu::always_inline]] inline void storeNumber(Split<F> view, long i, Pair<F> z) {
  view.putNumber(i, z);
}

template <Direction d, int n, class View>
[[gnu::flatten]] void smallDft(typename View::Const src, View dst, typename View::F factor) {
  using Z = decltype(loadNumber(src, 0));
  Z a[n];
  unrolled<n>([&](auto i) { a[i] = loadNumber(src, i); });
  transforms::butterfly<d, typename View::F>(a);
  unrolled<n>([&](auto i) { storeNumber(dst, i, a[i] * factor); });
}

}  // namespace detail

// By length less 1; `factor` multiplies the result.
template <Direction d, class View>
constexpr auto ownDftSmall =
    kernelTable<void (*)(typename View::Const src, View dst, typename View::F factor), 16>(
        [](auto i) { return detail::smallDft<d, i + 1, View>; });

}  // namespace mox::transforms
