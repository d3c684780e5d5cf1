// A block of outputs stays in registers while the taps run by: a tap costs one load for the block,
// a sample one load for each product. Nearly half of the latter would cross a cache line and take
// twice the time. So a window of real samples is copied once, to where its lines begin half a line
// later, and each load goes to the one of the two that has its vector within a line. They change
// places whenever the taps have moved on by a vector.
#include "kernels/sliding_dot.h"

#include <algorithm>
#include <limits>

#include "frame/elements.h"
#include "frame/vec/vec.h"

namespace mox::kernels {
namespace {

// Registers of outputs in a block; a complex output needs two.
template <class A>
constexpr int mostRegisters = Complex<A> ? 4 : 12;

// T is a register of numbers of type F or, at the end of an array, a single number.
template <class F, class T>
constexpr int lanesIn = sizeof(T) / sizeof(F);

template <class T, class F>
[[gnu::always_inline]] inline T everyLane(F value) {
  if constexpr (lanesIn<F, T> == 1)
    return value;
  else
    return broadcast<T>(value);
}

// A register of outputs in the making.
template <class A, class T>
struct Sum {
  struct Tap {
    explicit Tap(const A* p) : value(everyLane<T>(load<A>(p))) {}
    T value;
  };
  [[gnu::always_inline]] void add(const Tap& tap, T x) { sum += tap.value * x; }
  [[gnu::always_inline]] T result() const { return sum; }

  T sum{};
};

template <Complex A, class T>
struct Sum<A, T> {
  using F = Part<A>;
  struct Tap {
    explicit Tap(const A* p)
        : re(everyLane<T>(load<F>(parts(p)))), im(everyLane<T>(load<F>(parts(p) + 1))) {}
    T re, im;
  };
  [[gnu::always_inline]] void add(const Tap& tap, T x) {
    byRe += tap.re * x;
    byIm += tap.im * x;
  }
  [[gnu::always_inline]] T result() const {
    const T turned = shuffle<[](int i) { return i ^ 1; }>(byIm);
    return shuffle<[](int i) { return i % 2 * lanesIn<F, T> + i; }>(byRe - turned, byRe + turned);
  }

  T byRe{}, byIm{};
};

// Where a block finds its samples: the vectors at even places here, those at odd places there,
// until the taps have come to `change`.
template <class F>
struct Sides {
  const F *even, *odd;
  long change;
};

// The samples of a window as numbers, and perhaps a copy of them half a line off.
template <class F>
struct Samples {
  const F* window;
  const F* copy = nullptr;

  Sides<F> from(long i) const {
    const F* a = window + i;
    if (!copy) return {a, a, std::numeric_limits<long>::max()};
    const F* b = copy + i;
    const long change = lanesOf<F> - long(addressOf(a) % vectorBytes / sizeof(F));
    if (addressOf(a) & vectorBytes) std::swap(a, b);
    return {a, b, change};
  }
};

template <class A, class T, int... j>
[[gnu::always_inline]] inline void sumBlock(std::integer_sequence<int, j...>, Sides<Part<A>> sides,
                                            A* dst, const A* revTaps, long tapsLen) {
  constexpr int lanes = lanesIn<Part<A>, T>;
  Sum<A, T> sums[sizeof...(j)];
  auto [even, odd, end] = sides;
  for (long k = 0;;) {
    end = std::min(end, tapsLen);
    do {
      const typename Sum<A, T>::Tap tap(revTaps + k);
      (sums[j].add(tap, load<T>((j % 2 ? odd : even) + j * lanes + k * partsPerElement<A>)), ...);
    } while (++k < end);
    if (k == tapsLen) break;
    std::swap(even, odd);
    end += lanes;
  }
  (store(parts(dst) + j * lanes, sums[j].result()), ...);
}

// A block of `registers` registers, `most` at the most.
template <class A, class T, int most>
void sumRegisters(long registers, Sides<Part<A>> sides, A* dst, const A* revTaps, long tapsLen) {
  if constexpr (most > 1)
    if (registers < most)
      return sumRegisters<A, T, most - 1>(registers, sides, dst, revTaps, tapsLen);
  sumBlock<A, T>(std::make_integer_sequence<int, most>(), sides, dst, revTaps, tapsLen);
}

// Full blocks, two that share what is left from between one and two of them, and at the end of the
// outputs a register that may compute some of them again.
template <class A, int lanes = lanesOf<Part<A>>>
void sumOutputs(Samples<Part<A>> samples, A* dst, long count, const A* revTaps, long tapsLen) {
  using F = Part<A>;
  using T = std::conditional_t<lanes == 1, F, V<F, lanes>>;
  constexpr int most = mostRegisters<A>;
  constexpr long outputs = lanes / partsPerElement<A>;
  if constexpr (outputs > 1)
    if (count < outputs)
      return sumOutputs<A, lanes / 2>({samples.window}, dst, count, revTaps, tapsLen);

  const auto block = [&](long i, long registers) {
    sumRegisters<A, T, most>(registers, samples.from(i * partsPerElement<A>), dst + i, revTaps,
                             tapsLen);
  };
  for (long i = 0, left = count; left > 0; left = count - i) {
    long registers = (left + outputs - 1) / outputs;
    if (registers >= 2 * most)
      registers = most;
    else if (registers > most)
      registers = (registers + 1) / 2;
    else if (registers * outputs <= count)
      i = count - registers * outputs;
    else
      --registers;
    block(i, registers);
    i += registers * outputs;
  }
}

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
        sumOutputs<A>({window + i, copy}, dst + i, outputs, revTaps, tapsLen);
      }
      return;
    }
  }
  sumOutputs<A>({parts(window)}, dst, count, revTaps, tapsLen);
}

template void filterWindow(const Mox32f*, Mox32f*, long, const Mox32f*, long);
template void filterWindow(const Mox64f*, Mox64f*, long, const Mox64f*, long);
template void filterWindow(const Mox32fc*, Mox32fc*, long, const Mox32fc*, long);
template void filterWindow(const Mox64fc*, Mox64fc*, long, const Mox64fc*, long);

}  // namespace mox::kernels
