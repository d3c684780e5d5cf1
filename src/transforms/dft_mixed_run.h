// The run of the mixed-radix method, for the two files that compile it for a type each.
#pragma once

#include "frame/kernel_table.h"
#include "transforms/dft_mixed.h"

namespace mox::transforms {
namespace detail {

template <class F, class Source, class Target>
using ColumnsKernel = void (*)(const Source& src, const Target& dst, const DftPass<F>& pass);
template <class F, class Target>
using LastKernel = void (*)(Array<const ComplexOf<F>> src, const Target& dst,
                            const DftPass<F>& pass);

// The radix of a kernel's number: 0 stands for those that only the plan knows.
template <int number, class F>
auto radixOf(const DftPass<F>& pass) {
  if constexpr (number > 1)
    return std::integral_constant<int, number>();
  else
    return int(pass.radix);
}
template <class F>
int numberOf(const DftPass<F>& pass) {
  return hasButterfly(pass.radix) ? pass.radix : 0;
}

// All that they call must be inlined, or the numbers of a butterfly go through memory.
template <int number, class F, class Source, class Target>
[[gnu::flatten]] void columnsKernel(const Source& src, const Target& dst, const DftPass<F>& pass) {
  joinColumns<F>(radixOf<number>(pass), src, dst, pass);
}
template <int number, class F, class Target>
[[gnu::flatten]] void lastKernel(Array<const ComplexOf<F>> src, const Target& dst,
                                 const DftPass<F>& pass) {
  joinLast<F>(radixOf<number>(pass), src, dst, pass);
}

// The passes of half the rows are those of odd lengths.
template <class Target>
constexpr bool hasKernel(int number) {
  return !isHalf<Target> || number == 0 || (number > 1 && number % 2);
}
template <class F, class Source, class Target = Array<ComplexOf<F>>>
constexpr auto ownDftColumns = kernelTable<ColumnsKernel<F, Source, Target>, mostButterfly + 1>(
    [](auto number) -> ColumnsKernel<F, Source, Target> {
      if constexpr (hasKernel<Target>(number)) return columnsKernel<number, F, Source, Target>;
      return nullptr;
    });
template <class F, class Target>
constexpr auto ownDftLast =
    kernelTable<LastKernel<F, Target>, mostButterfly + 1>([](auto number) -> LastKernel<F, Target> {
      if constexpr (hasKernel<Target>(number)) return lastKernel<number, F, Target>;
      return nullptr;
    });

template <class F>
struct Areas {
  Array<ComplexOf<F>> from, to;
};
// Results of the first pass lie so that those of the last but one come into the first area.
template <class F>
Areas<F> areasOf(const DftSpec<F>& plan, F* work) {
  const Array<ComplexOf<F>> first = {reinterpret_cast<ComplexOf<F>*>(work)},
                            second = first.from(mixedAreaNumbers(plan));
  if (plan.passes % 2) return {second, first};
  return {first, second};
}

}  // namespace detail

template <class F>
void primeButterfly(V<F>* a, const PrimeTable<F>& table) {
  constexpr int block = 4;
  const int half = table.half, p = table.prime();
  V<F> sum[detail::mostAnyRadix / 2], difference[detail::mostAnyRadix / 2];
  const V<F> first = a[0];
  for (int i = 0; i < half; ++i) {
    const int k = table.power[i];
    sum[i] = a[k] + a[p - k];
    difference[i] = timesImaginary(swapParts(a[k] - a[p - k]), F(-1));
    a[0] += sum[i];
  }
  for (int i = 0; i < half; i += block) {
    V<F> even[block], odd[block];
    for (int r = 0; r < block; ++r) even[r] = first, odd[r] = V<F>{};
    const F *cosines = table.cosines + i, *sines = table.sines + i;
    for (int k = 0; k < half; ++k)
      for (int r = 0; r < block; ++r) {
        even[r] += sum[k] * broadcast<V<F>>(cosines[k + r]);
        odd[r] += difference[k] * broadcast<V<F>>(sines[k + r]);
      }
    for (int r = 0; r < std::min(block, half - i); ++r) {
      const int j = table.power[i + r];
      a[j] = even[r] + odd[r];
      a[p - j] = even[r] - odd[r];
    }
  }
}

template <class F, class Source, class Target>
void ownDftMixed(const DftSpec<F>& plan, const Source& src, const Target& dst, F* work) {
  using Area = Array<ComplexOf<F>>;
  using Const = Array<const ComplexOf<F>>;
  const int last = plan.passes - 1;
  auto [from, to] = detail::areasOf(plan, work);
  const DftPass<F>& first = plan.pass[0];
  detail::ownDftColumns<F, Source>[detail::numberOf(first)](src, from, first);
  for (int i = 1; i < last; ++i) {
    const DftPass<F>& pass = plan.pass[i];
    detail::ownDftColumns<F, Const>[detail::numberOf(pass)]({from.p}, to, pass);
    std::swap(from, to);
  }
  const DftPass<F>& pass = plan.pass[last];
  if (constexpr long numbers = lanesOf<F> / 2; pass.rows >= numbers) {
    detail::ownDftLast<F, Target>[detail::numberOf(pass)]({from.p}, dst, pass);
  } else {
    // Too few rows for a vector: stores reach into the numbers behind, which come later.
    detail::ownDftLast<F, Area>[detail::numberOf(pass)]({from.p}, to, pass);
    forVectors<F>(plan.core, [&, to = to](long i) { dst.putInterleaved(i, to.interleaved(i)); });
  }
}

}  // namespace mox::transforms
