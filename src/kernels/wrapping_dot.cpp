// A block of sums stays in registers while the taps run by. Two neighbouring real samples, or one
// complex, fill a 32-bit lane, and a tap that goes with them is the same in all lanes.
#include "kernels/wrapping_dot.h"

#include <algorithm>

#include "frame/pair.h"

namespace mox::kernels {
namespace {

using Words = I<Mox16s>;
using Sums = I<Mox32s>;
constexpr int wordsLanes = laneCount<Words>;

Words everyLane(Mox32u pair) { return Words(broadcast<I<Mox32u>>(pair)); }

// Outputs at even and at odd places meet a pair of taps at places one apart.
struct RealSums {
  using A = Mox16s;
  static constexpr int outputs = wordsLanes, tapsPerStep = 2;
  struct Taps {
    Taps(const A* p, int count)
        : pair(everyLane(count == 1 ? Mox32u(Mox16u(load<A>(p))) : load<Mox32u>(p))) {}
    Words pair;
  };
  [[gnu::always_inline]] void add(const Taps& taps, const Mox16s* x) {
    first = addWrapping(first, multiplyAddPairs(load<Words>(x), taps.pair));
    second = addWrapping(second, multiplyAddPairs(load<Words>(x + 1), taps.pair));
  }
  Sums first{}, second{};
};

// Real and imaginary parts meet the two factors of a tap.
struct ComplexSums {
  using A = Mox16sc;
  static constexpr int outputs = wordsLanes / 2, tapsPerStep = 1;
  struct Taps {
    Taps(const A* p, int) : crossed(everyLane(load<Mox32u>(p))) {
      real = (crossed ^ imaginaryLanes()) - imaginaryLanes();
      crossed = swapParts(crossed);
    }
    Words real, crossed;
  };
  [[gnu::always_inline]] void add(const Taps& taps, const Mox16s* x) {
    const Words samples = load<Words>(x);
    first = addWrapping(first, multiplyAddPairs(samples, taps.real));
    second = addWrapping(second, multiplyAddPairs(samples, taps.crossed));
  }
  Sums first{}, second{};
};

// A block of that many times S::outputs. Pairs of taps leave out an odd one at the start, whose
// neighbour others need, so that nothing behind the window is read. It comes last: the compiler
// would take loads that are due to both over into the loop, and sums out of registers for it.
template <class S, int... j>
void sumBlock(std::integer_sequence<int, j...>, const Mox16s* x, Mox32s* dst,
              const typename S::A* taps, long tapsLen) {
  constexpr int width = partsPerElement<typename S::A>;
  S sums[sizeof...(j)];
  const auto step = [&](long k, int count) __attribute__((always_inline)) {
    const typename S::Taps tap(taps + k, count);
    (sums[j].add(tap, x + k * width + j * wordsLanes), ...);
  };
  const long odd = tapsLen % S::tapsPerStep;
  for (long k = odd; k < tapsLen; k += S::tapsPerStep) step(k, S::tapsPerStep);
  if (odd) step(0, 1);
  (store(dst + j * wordsLanes, interleaved(Pair{sums[j].first, sums[j].second})), ...);
}

template <class S, int most = 6>
void sumRegisters(long registers, const Mox16s* x, Mox32s* dst, const typename S::A* taps,
                  long tapsLen) {
  if constexpr (most > 1)
    if (registers < most) return sumRegisters<S, most - 1>(registers, x, dst, taps, tapsLen);
  sumBlock<S>(std::make_integer_sequence<int, most>(), x, dst, taps, tapsLen);
}

// A single real tap would read the sample behind the last.
template <class S, class A, class Sum>
void sumOutputs(const A* window, Sum* dst, long count, const A* taps, long tapsLen) {
  if (count < S::outputs || tapsLen < S::tapsPerStep) {
    for (long i = 0; i < count; ++i)
      dst[i] = dotProduct<Sum, TapOrder::reversed>(window + i, taps, tapsLen);
    return;
  }
  for (long i = 0; i < count;) {
    long registers = (count - i) / S::outputs;
    if (registers == 0) i = count - S::outputs, registers = 1;  // some of them again
    registers = std::min(registers, 6L);
    sumRegisters<S>(registers, parts(window + i), parts(dst + i), taps, tapsLen);
    i += registers * S::outputs;
  }
}

}  // namespace

void filterWindow(const Mox16s* window, Mox32s* dst, long count, const Mox16s* revTaps,
                  long tapsLen) {
  sumOutputs<RealSums>(window, dst, count, revTaps, tapsLen);
}
void filterWindow(const Mox16sc* window, Mox32sc* dst, long count, const Mox16sc* revTaps,
                  long tapsLen) {
  sumOutputs<ComplexSums>(window, dst, count, revTaps, tapsLen);
}

}  // namespace mox::kernels
