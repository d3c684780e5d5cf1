// Straight-line transforms of 1 to 16 numbers. Each reads all of its source before it writes, so
// that source and destination may be one array.
#pragma once

#include "frame/kernel_table.h"
#include "transforms/dft_butterflies.h"
#include "transforms/dft_views.h"

namespace mox::transforms {
namespace detail {

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
