// Sums of products, block by block of outputs: what a block's outputs have in common is a matter
// for the kernel of filters, and the corners at the ends of the samples for dot products.
#include <algorithm>

#include "arith/operations.h"
#include "corr/sliding_sum.h"
#include "frame/map.h"
#include "kernels/dot.h"
#include "kernels/sliding_dot.h"

namespace mox::corr {
namespace {

// Taps that are held at a time, and outputs of a block amid the samples and near their ends.
constexpr long pieceTaps = 256, mostOutputs = 480, edgeOutputs = 32;

// Taps in the order of the samples, of which output i takes taps[k] * x[first + i + k].
template <class E>
struct Piece {
  const E* taps;
  long tapsLen;
  const E* x;
  long len, first;

  // The taps that meet samples in output i.
  long begin(long i) const { return std::clamp(-(first + i), 0L, tapsLen); }
  long end(long i) const { return std::clamp(len - (first + i), 0L, tapsLen); }

  void addDot(long i, long from, long to, E& sum) const {
    if (from >= to) return;
    const E dot = kernels::dotProduct<E, kernels::TapOrder::reversed>(x + first + i + from,
                                                                      taps + from, to - from);
    for (int part = 0; part < partsPerElement<E>; ++part) parts(&sum)[part] += parts(&dot)[part];
  }

  void sumBlock(long i, long count, E* sums) const {
    long from = begin(i), to = end(i + count - 1);
    if (from < to)
      kernels::filterWindow(x + first + i + from, sums, count, taps + from, to - from);
    else
      from = to = tapsLen, std::fill(sums, sums + count, E{});
    if (from == 0 && to == tapsLen) return;
    for (long j = 0; j < count; ++j) {
      addDot(i + j, begin(i + j), std::min(from, end(i + j)), sums[j]);
      addDot(i + j, std::max(to, begin(i + j)), end(i + j), sums[j]);
    }
  }

  void addTo(E* dst, long count) const {
    const long lo = std::clamp(1 - tapsLen - first, 0L, count),
               hi = std::clamp(len - first, lo, count), wholeFrom = std::clamp(-first, lo, hi),
               wholeTo = std::clamp(len - first - tapsLen + 1, wholeFrom, hi);
    const auto stretch = [&](long i, long end, long most) {
      alignas(vectorBytes) E sums[mostOutputs];
      for (long n; i < end; i += n) {
        n = std::min(end - i, most);
        sumBlock(i, n, sums);
        mapElements(arith::sum, dst + i, n, sums, dst + i);
      }
    };
    stretch(lo, wholeFrom, edgeOutputs);
    stretch(wholeFrom, wholeTo, mostOutputs);
    stretch(wholeTo, hi, edgeOutputs);
  }
};

}  // namespace

template <class E>
void sumDirectly(const SlidingSum<E>& sum, E* dst, long count) {
  std::memset(static_cast<void*>(dst), 0, std::size_t(count) * sizeof(E));
  E taps[pieceTaps];
  for (long k = 0; k < sum.tapsLen; k += pieceTaps) {
    const long n = std::min(sum.tapsLen - k, pieceTaps);
    for (long j = 0; j < n; ++j) taps[j] = sum.tap(k + j);
    Piece<E>{taps, n, sum.x, sum.len, sum.first + k}.addTo(dst, count);
  }
}

template void sumDirectly(const SlidingSum<Mox32f>&, Mox32f*, long);
template void sumDirectly(const SlidingSum<Mox64f>&, Mox64f*, long);
template void sumDirectly(const SlidingSum<Mox32fc>&, Mox32fc*, long);
template void sumDirectly(const SlidingSum<Mox64fc>&, Mox64fc*, long);

}  // namespace mox::corr
