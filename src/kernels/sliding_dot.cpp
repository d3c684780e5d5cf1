// A block of outputs stays in registers while the taps run by: a tap costs one load for the block,
// a sample one load for each product. Nearly half of these would cross a cache line and take twice
// the time. So a window of real samples is copied once, to where its lines begin half a line later:
//
//   window   |  0  1  2  3  4  5  6  7 |  8  9 10 11 ...       | marks the start of a line
//   copy      0  1  2  3 |  4  5  6  7  8  9 10 11 | ...
//
// Loads at even places of a block go to one of the two and those at odd places to the other, each
// within a line. The two change places whenever the taps have moved on by a vector.
#include "kernels/sliding_dot.h"

#include <algorithm>
#include <limits>

#include "kernels/register_sum.h"

namespace mox::kernels {
namespace {

// Where a block finds its samples: the vectors at even places here, those at odd places there,
// until the taps have come to `change`.
template <class F>
struct Sides {
  const F *even, *odd;
  long change;

  template <class A, class T, int... j>
  [[gnu::always_inline]] void sumBlock(std::integer_sequence<int, j...>, A* dst, const A* revTaps,
                                       long tapsLen) {
    constexpr int lanes = lanesIn<F, T>;
    Sum<A, T> sums[sizeof...(j)];
    for (long k = 0;;) {
      const long end = std::min(change, tapsLen);
      do {
        const typename Sum<A, T>::Tap tap(revTaps + k);
        (sums[j].add(tap, load<T>((j % 2 ? odd : even) + j * lanes + k * partsPerElement<A>)), ...);
      } while (++k < end);
      if (k == tapsLen) break;
      std::swap(even, odd);
      change += lanes;
    }
    (store(parts(dst) + j * lanes, sums[j].result()), ...);
  }
};

// The samples of a window as numbers, and perhaps a copy of them half a line off.
template <class F>
struct Samples {
  const F* window;
  const F* copy = nullptr;

  Samples narrow() const { return {window}; }
  Sides<F> from(long i) const {
    const F* a = window + i;
    if (!copy) return {a, a, std::numeric_limits<long>::max()};
    const F* b = copy + i;
    const long change = lanesOf<F> - long(addressOf(a) % vectorBytes / sizeof(F));
    if (addressOf(a) & vectorBytes) std::swap(a, b);
    return {a, b, change};
  }
};

// Taps from which on the copy pays, and up to which it stays in the first-level cache.
constexpr long leastTapsToCopy = 12, mostTapsToCopy = 1024;

}  // namespace

template <class A>
void filterWindow(const A* window, A* dst, long count, const A* revTaps, long tapsLen) {
  if constexpr (!Complex<A>) {
    constexpr long block = mostRegisters<A> * lanesOf<A>, piece = 10 * block;
    constexpr int line = 2 * vectorBytes;
    if (count >= block && tapsLen >= leastTapsToCopy && tapsLen <= mostTapsToCopy) {
      alignas(line) std::byte room[sizeof(A) * (piece + mostTapsToCopy) + line];
      for (long i = 0; i < count; i += piece) {
        const long outputs = std::min(piece, count - i);
        A* copy = reinterpret_cast<A*>(room + ((addressOf(window + i) % line) ^ vectorBytes));
        std::memcpy(copy, window + i, (outputs + tapsLen - 1) * sizeof(A));
        sumOutputs(Samples<A>{window + i, copy}, dst + i, outputs, revTaps, tapsLen);
      }
      return;
    }
  }
  sumOutputs(Samples<Part<A>>{parts(window)}, dst, count, revTaps, tapsLen);
}

template void filterWindow(const Mox32f*, Mox32f*, long, const Mox32f*, long);
template void filterWindow(const Mox64f*, Mox64f*, long, const Mox64f*, long);
template void filterWindow(const Mox32fc*, Mox32fc*, long, const Mox32fc*, long);
template void filterWindow(const Mox64fc*, Mox64fc*, long, const Mox64fc*, long);

}  // namespace mox::kernels
