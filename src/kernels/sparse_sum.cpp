#include "kernels/sparse_sum.h"

#include "kernels/register_sum.h"

namespace mox::kernels {
namespace {

struct Samples {
  const int* positions;
  const Mox32f *newest, *begin;

  Samples narrow() const { return *this; }
  Samples from(long i) const { return {positions, newest + i, begin ? begin + i : nullptr}; }

  template <class A, class T, int... j>
  [[gnu::always_inline]] void sumBlock(std::integer_sequence<int, j...>, A* dst, const A* taps,
                                       long count) const {
    constexpr int lanes = lanesIn<A, T>;
    Sum<A, T> sums[sizeof...(j)];
    long k = 0;
    if (begin) {
      ((sums[j].sum = load<T>(begin + j * lanes)), ...);
    } else {
      // A product of -0 would not survive a sum with 0.
      const T tap = everyLane<T>(load<A>(taps));
      ((sums[j].sum = tap * load<T>(newest - positions[0] + j * lanes)), ...);
      k = 1;
    }
    for (; k < count; ++k) {
      const typename Sum<A, T>::Tap tap(taps + k);
      const A* x = newest - positions[k];
      (sums[j].add(tap, load<T>(x + j * lanes)), ...);
    }
    (store(dst + j * lanes, sums[j].result()), ...);
  }
};

}  // namespace

void sumSparse(SparseTaps taps, const Mox32f* newest, const Mox32f* begin, Mox32f* dst, long len) {
  sumOutputs(Samples{taps.positions, newest, begin}, dst, len, taps.values, taps.count);
}

}  // namespace mox::kernels
