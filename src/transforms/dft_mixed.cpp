#include "transforms/dft_mixed.h"

namespace mox::transforms {
namespace {

// What a pass of a radix costs for each number, in about a quarter of a cycle per vector: the
// operations of its butterfly, and those of a pass whatever its radix.
constexpr int passCost = 24;
constexpr int butterflyCost[] = {0, 0, 4, 11, 9, 19, 15, 28, 14, 29, 23, 44, 19, 52, 32, 30, 25};
constexpr int mostRadix = 16;

struct Choice {
  DftRadices radices;
  int cost = 0;
};

// The cheapest product, of falling factors up to `most`; of no cost where there is none.
Choice cheapest(long len, int most) {
  Choice best;
  for (int r = int(std::min<long>(most, len)); r > 1; --r) {
    if (len % r) continue;
    Choice choice;
    if (r < len) {
      choice = cheapest(len / r, r);
      if (choice.cost == 0) continue;
    }
    choice.cost += passCost + butterflyCost[r];
    if (best.cost && choice.cost >= best.cost) continue;
    choice.radices.radix[choice.radices.count++] = r;
    best = choice;
  }
  return best;
}

template <class F, class Source>
using ColumnsKernel = void (*)(Source src, Array<ComplexOf<F>> dst, const DftPass<F>& pass);
template <class F, class Target>
using LastKernel = void (*)(Array<const ComplexOf<F>> src, Target dst, const DftPass<F>& pass);

// By radix; the first entry is for those that only the plan knows.
template <class F, class Source>
class ColumnsKernels {
 public:
  constexpr ColumnsKernels() { fill(std::make_integer_sequence<int, mostRadix + 1>()); }
  void operator()(Source src, Array<ComplexOf<F>> dst, const DftPass<F>& pass) const {
    kernels_[pass.radix > mostRadix ? 0 : pass.radix](src, dst, pass);
  }

 private:
  template <int radix>
  static void kernel(Source src, Array<ComplexOf<F>> dst, const DftPass<F>& pass) {
    if constexpr (radix > 0)
      joinColumns<F>(std::integral_constant<int, radix>(), src, dst, pass);
    else
      joinColumns<F>(int(pass.radix), src, dst, pass);
  }
  template <int... radix>
  constexpr void fill(std::integer_sequence<int, radix...>) {
    ((kernels_[radix] = kernel<radix>), ...);
  }
  ColumnsKernel<F, Source> kernels_[mostRadix + 1] = {};
};
template <class F, class Target>
class LastKernels {
 public:
  constexpr LastKernels() { fill(std::make_integer_sequence<int, mostRadix + 1>()); }
  void operator()(Array<const ComplexOf<F>> src, Target dst, const DftPass<F>& pass) const {
    kernels_[pass.radix > mostRadix ? 0 : pass.radix](src, dst, pass);
  }

 private:
  template <int radix>
  static void kernel(Array<const ComplexOf<F>> src, Target dst, const DftPass<F>& pass) {
    if constexpr (radix > 0)
      joinLast<F>(std::integral_constant<int, radix>(), src, dst, pass);
    else
      joinLast<F>(int(pass.radix), src, dst, pass);
  }
  template <int... radix>
  constexpr void fill(std::integer_sequence<int, radix...>) {
    ((kernels_[radix] = kernel<radix>), ...);
  }
  LastKernel<F, Target> kernels_[mostRadix + 1] = {};
};
template <class F, class Source>
constexpr ColumnsKernels<F, Source> ownDftColumns;
template <class F, class Target>
constexpr LastKernels<F, Target> ownDftLast;

}  // namespace

DftRadices dftRadices(const DftFactors& factors) {
  long smooth = 1;
  DftRadices r;
  const auto take = [&](int factor) {
    if (factor > mostRadix)
      r.radix[r.count++] = factor;
    else
      smooth *= factor;
  };
  for (int i = 0; i < factors.levels; ++i) take(factors.radix[i]);
  take(factors.leaf);
  const DftRadices small = cheapest(smooth, mostRadix).radices;
  std::copy_n(small.radix, small.count, r.radix + r.count);
  r.count += small.count;
  std::sort(r.radix, r.radix + r.count);
  return r;
}

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

template <class F, class View>
void ownDftMixed(const DftSpec<F>& plan, Scaled<typename View::Const> src, Scaled<View> dst,
                 F* work) {
  using C = ComplexOf<F>;
  using Area = Array<C>;
  using Const = Array<const C>;
  const int last = plan.passes - 1;
  Area from = {reinterpret_cast<C*>(work)}, to = from.from(mixedAreaNumbers(plan));
  // Results of the first pass lie so that those of the last but one come into the first area.
  if (last % 2 == 0) std::swap(from, to);
  ownDftColumns<F, Scaled<typename View::Const>>(src, from, plan.pass[0]);
  for (int i = 1; i < last; ++i) {
    ownDftColumns<F, Const>({from.p}, to, plan.pass[i]);
    std::swap(from, to);
  }
  const DftPass<F>& pass = plan.pass[last];
  if (constexpr long numbers = lanesOf<F> / 2; pass.rows >= numbers) {
    ownDftLast<F, Scaled<View>>({from.p}, dst, pass);
  } else {
    // Too few rows for a vector: stores reach into the numbers behind, which come later.
    ownDftLast<F, Area>({from.p}, to, pass);
    for (long i = 0; i < plan.core; ++i) dst.putNumber(i, to.number(i));
  }
}

#define MOX_INSTANTIATE(F)                                                                    \
  template void primeButterfly(V<F>*, const PrimeTable<F>&);                                  \
  template void ownDftMixed<F, Array<ComplexOf<F>>>(                                          \
      const DftSpec<F>&, Scaled<Array<const ComplexOf<F>>>, Scaled<Array<ComplexOf<F>>>, F*); \
  template void ownDftMixed<F, Split<F>>(const DftSpec<F>&, Scaled<Split<const F>>,           \
                                         Scaled<Split<F>>, F*)
MOX_INSTANTIATE(Mox32f);
MOX_INSTANTIATE(Mox64f);

}  // namespace mox::transforms
