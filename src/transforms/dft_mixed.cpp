#include "transforms/dft_mixed.h"

#include <climits>

#include "frame/kernel_table.h"

namespace mox::transforms {
namespace {

constexpr int mostRadix = 16;
static_assert(hasButterfly(mostRadix) && !hasButterfly(mostRadix + 1));

// Instructions of a butterfly as GCC makes it, a prime's of more than 16 by its sums; those of a
// twiddle.
constexpr int butterflyCost(int radix) {
  constexpr int costs[] = {0, 0, 2, 8, 10, 27, 24, 55, 35, 70, 66, 153, 67, 201, 136, 139, 130};
  return radix <= mostRadix ? costs[radix] : radix * radix;
}
constexpr int twiddleCost = 6;

// Instructions of the passes of a transform of n numbers, `numbers` in a vector.
long costOf(const DftRadices& radices, long n, long numbers) {
  const auto vectors = [=](long count) { return (count + numbers - 1) / numbers; };
  long cost = 0, rows = 1;
  for (int i = 0; i < radices.count; ++i) {
    const long radix = radices.radix[i], columns = n / (rows * radix);
    const long twiddles = twiddleCost * (radix - 1), plain = butterflyCost(int(radix)) + 4;
    if (columns > 1 && columns < numbers) return LONG_MAX;
    const long vector = plain + (columns > 1 ? 2 : 4) * radix + twiddles;
    cost += (columns > 1 ? rows * vectors(columns) : vectors(rows)) * vector;
    if (columns > 1) cost -= vectors(columns) * twiddles;
    if (rows < numbers && columns == 1) cost += 6 * n;
    cost += vector / 2;  // the next pass waits for the last vector
    rows *= radix;
  }
  return cost;
}

// Finds the cheapest product of factors up to 16 for what is left of a length, in rising order but
// for the last.
class Search {
 public:
  Search(long n, long numbers) : n_(n), numbers_(numbers) {}

  void complete(DftRadices& chosen, long rest, int least) {
    if (rest == 1) return consider(chosen);
    if (chosen.count == dftMaxPasses) return;
    for (int r = least; r <= mostRadix && r <= rest; ++r) {
      if (rest % r) continue;
      chosen.radix[chosen.count++] = r;
      complete(chosen, rest / r, r);
      --chosen.count;
    }
  }
  const DftRadices& best() const { return best_; }

 private:
  // With each of the radices as the last one.
  void consider(DftRadices radices) {
    std::sort(radices.radix, radices.radix + radices.count);
    for (int i = radices.count - 1; i >= 0; --i) {
      DftRadices ordered = radices;
      std::rotate(ordered.radix + i, ordered.radix + i + 1, ordered.radix + radices.count);
      const long cost = costOf(ordered, n_, numbers_);
      if (best_.count == 0 || cost < cost_) best_ = ordered, cost_ = cost;
    }
  }

  long n_, numbers_, cost_ = 0;
  DftRadices best_;
};

template <class F, class Source>
using ColumnsKernel = void (*)(const Source& src, Array<ComplexOf<F>> dst, const DftPass<F>& pass);
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
template <int number, class F, class Source>
[[gnu::flatten]] void columnsKernel(const Source& src, Array<ComplexOf<F>> dst,
                                    const DftPass<F>& pass) {
  joinColumns<F>(radixOf<number>(pass), src, dst, pass);
}
template <int number, class F, class Target>
[[gnu::flatten]] void lastKernel(Array<const ComplexOf<F>> src, const Target& dst,
                                 const DftPass<F>& pass) {
  joinLast<F>(radixOf<number>(pass), src, dst, pass);
}

template <class F, class Source>
constexpr auto ownDftColumns = kernelTable<ColumnsKernel<F, Source>, mostRadix + 1>(
    [](auto number) { return columnsKernel<number, F, Source>; });
template <class F, class Target>
constexpr auto ownDftLast = kernelTable<LastKernel<F, Target>, mostRadix + 1>([](auto number) {
  return lastKernel<number, F, Target>;
});

}  // namespace

DftRadices dftRadices(const DftFactors& factors, long numbers) {
  long smooth = 1, length = 1;
  DftRadices primes;
  const auto take = [&](int factor) {
    length *= factor;
    if (factor > mostRadix)
      primes.radix[primes.count++] = factor;
    else
      smooth *= factor;
  };
  for (int i = 0; i < factors.levels; ++i) take(factors.radix[i]);
  take(factors.leaf);
  Search search(length, numbers);
  search.complete(primes, smooth, 2);
  return search.best();
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

template <class F, class Source, class Target>
void ownDftMixed(const DftSpec<F>& plan, const Source& src, const Target& dst, F* work) {
  using C = ComplexOf<F>;
  using Area = Array<C>;
  using Const = Array<const C>;
  const int last = plan.passes - 1;
  Area from = {reinterpret_cast<C*>(work)}, to = from.from(mixedAreaNumbers(plan));
  // Results of the first pass lie so that those of the last but one come into the first area.
  if (last % 2 == 0) std::swap(from, to);
  const DftPass<F>& first = plan.pass[0];
  ownDftColumns<F, Source>[numberOf(first)](src, from, first);
  for (int i = 1; i < last; ++i) {
    const DftPass<F>& pass = plan.pass[i];
    ownDftColumns<F, Const>[numberOf(pass)]({from.p}, to, pass);
    std::swap(from, to);
  }
  const DftPass<F>& pass = plan.pass[last];
  if (constexpr long numbers = lanesOf<F> / 2; pass.rows >= numbers) {
    ownDftLast<F, Target>[numberOf(pass)]({from.p}, dst, pass);
  } else {
    // Too few rows for a vector: stores reach into the numbers behind, which come later.
    ownDftLast<F, Area>[numberOf(pass)]({from.p}, to, pass);
    for (long i = 0; i < plan.core; ++i) dst.putNumber(i, to.number(i));
  }
}

#define MOX_INSTANTIATE_VIEW(F, Source, Target) \
  template void ownDftMixed(const DftSpec<F>&, const Source&, const Target&, F*)
#define MOX_INSTANTIATE(F)                                                                 \
  template void primeButterfly(V<F>*, const PrimeTable<F>&);                               \
  MOX_INSTANTIATE_VIEW(F, Array<const ComplexOf<F>>, Array<ComplexOf<F>>);                 \
  MOX_INSTANTIATE_VIEW(F, Scaled<Array<const ComplexOf<F>>>, Scaled<Array<ComplexOf<F>>>); \
  MOX_INSTANTIATE_VIEW(F, Scaled<Split<const F>>, Scaled<Split<F>>)
MOX_INSTANTIATE(Mox32f);
MOX_INSTANTIATE(Mox64f);

}  // namespace mox::transforms
