#include "kernels/striped_dot.h"

#include "kernels/register_sum.h"

namespace mox::kernels {
namespace {

// Successive taps meet successive rows, in one column after the other. A register's samples cross a
// line half of the time, unless they come from the one of two copies where they don't.
template <class A>
struct Stripe {
  const A *even, *odd;  // samples of the registers at even and at odd places
  long row, stride, count;

  template <class, class T, int... j>
  [[gnu::always_inline]] void sumBlock(std::integer_sequence<int, j...>, A* dst, const A* revTaps,
                                       long tapsLen) {
    constexpr int lanes = lanesIn<Part<A>, T>;
    Sum<A, T> sums[sizeof...(j)];
    for (long k = 0; k < tapsLen;) {
      const long end = std::min(tapsLen, k + count - row);
      for (; k < end; ++k, even += stride, odd += stride) {
        const typename Sum<A, T>::Tap tap(revTaps + k);
        (sums[j].add(tap, load<T>(parts(j % 2 ? odd : even) + j * lanes)), ...);
      }
      even += 1 - count * stride, odd += 1 - count * stride;
      if (addressOf(even) % vectorBytes == 0) std::swap(even, odd);
      row = 0;
    }
    (store(parts(dst) + j * lanes, sums[j].result()), ...);
  }
};

template <class A>
struct Stripes {
  const Rows<A>& rows;
  long start;

  Stripes narrow() const { return *this; }
  Stripe<A> from(long part) const {
    const long row = start % rows.count, place = start / rows.count + part / partsPerElement<A>;
    const A *even = rows.row(row) + place, *odd = even + rows.toCopy;
    if (addressOf(even) & vectorBytes) std::swap(even, odd);
    return {even, odd, row, rows.stride, rows.count};
  }
};

}  // namespace

template <class A>
void filterStriped(const Rows<A>& rows, long start, A* dst, long count, const A* revTaps,
                   long tapsLen) {
  sumOutputs(Stripes<A>{rows, start}, dst, count, revTaps, tapsLen);
}

template void filterStriped(const Rows<Mox32f>&, long, Mox32f*, long, const Mox32f*, long);
template void filterStriped(const Rows<Mox64f>&, long, Mox64f*, long, const Mox64f*, long);
template void filterStriped(const Rows<Mox32fc>&, long, Mox32fc*, long, const Mox32fc*, long);
template void filterStriped(const Rows<Mox64fc>&, long, Mox64fc*, long, const Mox64fc*, long);

}  // namespace mox::kernels
