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

// What a step multiplies samples with: for the sums in one register, and for those in the other.
struct TapPair {
  TapPair(Words a, Words b) : first(a), second(b) {}
  TapPair(Mox32u a, Mox32u b) : first(everyLane(a)), second(everyLane(b)) {}
  Words first, second;
};

// For the sums in the second register alone.
struct LateTap {
  Words second;
};

// Sums at even places meet taps k and k + 1 where those at odd places meet taps k - 1 and k: so one
// load serves both. Zeros stand for the taps before the first and behind the last, and nothing
// behind the window is read.
struct RealTaps {
  using A = Mox16s;
  [[gnu::always_inline]] static void inner(const A* taps, long n, auto step) {
    for (long k = 2; k < n - 1; k += 2)
      step(TapPair(load<Mox32u>(taps + k), load<Mox32u>(taps + k - 1)), k);
  }
  [[gnu::always_inline]] static void ends(const A* taps, long n, auto step) {
    const Mox32u first = Mox16u(load<A>(taps)), last = Mox16u(load<A>(taps + n - 1));
    step(TapPair(n == 1 ? first : load<Mox32u>(taps), first << 16), 0);
    if (n % 2 == 0)
      step(LateTap{everyLane(last << 16)}, n - 1);
    else if (n > 1)
      step(TapPair(last, load<Mox32u>(taps + n - 2)), n - 1);
  }
};

// Real and imaginary parts meet the two factors of a tap.
struct ComplexTaps {
  using A = Mox16sc;
  [[gnu::always_inline]] static void inner(const A* taps, long n, auto step) {
    for (long k = 0; k < n; ++k) {
      const Words tap = everyLane(load<Mox32u>(taps + k));
      step(TapPair((tap ^ imaginaryLanes()) - imaginaryLanes(), swapParts(tap)), k);
    }
  }
  static void ends(const A*, long, auto) {}
};

// A block of as many registers of samples, where neighbouring results alternate between two sums.
// The ends of the taps come last, and sums are in registers before them: the compiler would take
// loads that are due to both over into the loop, and sums out of registers for it.
template <class Taps, int... j>
void sumBlock(std::integer_sequence<int, j...>, const Mox16s* x, Mox32s* dst,
              const typename Taps::A* taps, long tapsLen) {
  constexpr int width = partsPerElement<typename Taps::A>;
  Pair<Sums> sums[sizeof...(j)] = {};
  const auto step = [&](auto tap, long k) __attribute__((always_inline)) {
    const auto add = [&](Pair<Sums>& sum, const Mox16s* from) {
      const Words samples = inRegister(load<Words>(from));
      if constexpr (requires { tap.first; })
        sum.re = addWrapping(sum.re, multiplyAddPairs(samples, tap.first));
      sum.im = addWrapping(sum.im, multiplyAddPairs(samples, tap.second));
    };
    (add(sums[j], x + k * width + j * wordsLanes), ...);
  };
  Taps::inner(taps, tapsLen, step);
  ((sums[j] = {inRegister(sums[j].re), inRegister(sums[j].im)}), ...);
  Taps::ends(taps, tapsLen, step);
  // Stored as one, the two registers would go through the stack.
  const auto put = [](Mox32s* to, Registers<Sums, 2> r) {
    store(to, r.of[0]), store(to + laneCount<Sums>, r.of[1]);
  };
  (put(dst + j * wordsLanes, interleaved(sums[j])), ...);
}

template <class Taps, int most = 6>
void sumRegisters(long registers, const Mox16s* x, Mox32s* dst, const typename Taps::A* taps,
                  long tapsLen) {
  if constexpr (most > 1)
    if (registers < most) return sumRegisters<Taps, most - 1>(registers, x, dst, taps, tapsLen);
  sumBlock<Taps>(std::make_integer_sequence<int, most>(), x, dst, taps, tapsLen);
}

template <class Taps, class A, class Sum>
void sumOutputs(const A* window, Sum* dst, long count, const A* taps, long tapsLen) {
  constexpr int outputs = wordsLanes / partsPerElement<A>;
  if (count < outputs) {
    for (long i = 0; i < count; ++i)
      dst[i] = dotProduct<Sum, TapOrder::reversed>(window + i, taps, tapsLen);
    return;
  }
  for (long i = 0; i < count;) {
    long registers = (count - i) / outputs;
    if (registers == 0) i = count - outputs, registers = 1;  // some of them again
    registers = std::min(registers, 6L);
    sumRegisters<Taps>(registers, parts(window + i), parts(dst + i), taps, tapsLen);
    i += registers * outputs;
  }
}

}  // namespace

void filterWindow(const Mox16s* window, Mox32s* dst, long count, const Mox16s* revTaps,
                  long tapsLen) {
  sumOutputs<RealTaps>(window, dst, count, revTaps, tapsLen);
}
void filterWindow(const Mox16sc* window, Mox32sc* dst, long count, const Mox16sc* revTaps,
                  long tapsLen) {
  sumOutputs<ComplexTaps>(window, dst, count, revTaps, tapsLen);
}

}  // namespace mox::kernels
