// Real transforms of odd lengths, by the mixed-radix method on half of the rows.
#pragma once

#include "transforms/dft_mixed_run.h"

namespace mox::transforms {
namespace detail {

template <bool last, class F>
HalfRows<F, last> halfRows(Array<ComplexOf<F>> dst, const DftPass<F>& pass) {
  return {dst, dst.from(long(pass.radix / 2) * pass.rows * pass.columns)};
}

// The numbers of two vectors alternately.
[[gnu::always_inline]] inline Registers<V<Mox32f>, 2> alternately(V<Mox32f> a, V<Mox32f> b) {
  const auto z = interleaved(Pair{V<Mox64f>(a), V<Mox64f>(b)});
  return {{V<Mox32f>(z.of[0]), V<Mox32f>(z.of[1])}};
}
[[gnu::always_inline]] inline Registers<V<Mox64f>, 2> alternately(V<Mox64f> a, V<Mox64f> b) {
  return {{joinLow(a, b), joinHigh(a, b)}};
}

// The first pass takes the samples of two columns as a complex number.
template <class F>
using FirstKernel = void (*)(const F* src, Array<ComplexOf<F>> dst, const DftPass<F>& pass);
template <int number, class F>
[[gnu::flatten]] void firstKernel(const F* src, Array<ComplexOf<F>> dst, const DftPass<F>& pass) {
  const auto radix = radixOf<number>(pass);
  const long columns = pass.columns;
  for (long at = 0; at < columns; at += lanesOf<F>) {
    const long t = std::min(at, columns - lanesOf<F>);
    V<F> a[mostOf<std::remove_const_t<decltype(radix)>>];
    each(radix, [&](auto j) { a[j] = load<V<F>>(src + j * columns + t); });
    transform(radix, a, pass);
    each(radix, [&](auto c) {
      if (2 * c > radix) return;
      const V<F> mirrored = conjugated(a[c == 0 ? 0 : radix - c]);
      const auto [low, high] = alternately((a[c] + mirrored) * F(0.5),
                                           timesImaginary(swapParts(a[c] - mirrored), F(-0.5)))
                                   .of;
      dst.putInterleaved(c * columns + t, low);
      dst.putInterleaved(c * columns + t + lanesOf<F> / 2, high);
    });
  }
}

template <class F>
constexpr auto firstReal =
    kernelTable<FirstKernel<F>, mostButterfly + 1>([](auto number) -> FirstKernel<F> {
      if constexpr (hasKernel<HalfRows<F, false>>(number)) return firstKernel<number, F>;
      return nullptr;
    });

}  // namespace detail

template <class F>
const ComplexOf<F>* ownDftMixedReal(const DftSpec<F>& plan, const F* src, F* work) {
  using C = ComplexOf<F>;
  using Const = Array<const C>;
  using Columns = detail::HalfRows<F, false>;
  const int last = plan.passes - 1;
  auto [from, to] = detail::areasOf(plan, work);
  const DftPass<F>& first = plan.pass[0];
  detail::firstReal<F>[detail::numberOf(first)](src, from, first);
  for (int i = 1; i < last; ++i) {
    const DftPass<F>& pass = plan.pass[i];
    detail::ownDftColumns<F, Const, Columns>[detail::numberOf(pass)](
        {from.p}, detail::halfRows<false>(to, pass), pass);
    std::swap(from, to);
  }
  const DftPass<F>& pass = plan.pass[last];
  detail::ownDftLast<F, detail::HalfRows<F, true>>[detail::numberOf(pass)](
      {from.p}, detail::halfRows<true>(to, pass), pass);
  return to.p;
}

}  // namespace mox::transforms
