// Registers of outputs in the making: sums of samples times taps, real or complex.
#pragma once

#include "frame/elements.h"
#include "frame/vec/vec.h"

namespace mox::kernels {

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
    // Numbers of 8 bytes cross lines so often that their second load costs more than it spares.
    if constexpr (sizeof(A) == 8) x = inRegister(x);
    byRe += tap.re * x;
    byIm += tap.im * x;
  }
  [[gnu::always_inline]] T result() const {
    const T turned = shuffle<[](int i) { return i ^ 1; }>(byIm);
    return shuffle<[](int i) { return i % 2 * lanesIn<F, T> + i; }>(byRe - turned, byRe + turned);
  }

  T byRe{}, byIm{};
};

// A block of `registers` registers, `most` at the most. `place` is where it finds its samples.
template <class A, class T, int most, class Place>
void sumRegisters(long registers, Place place, A* dst, const A* revTaps, long tapsLen) {
  if constexpr (most > 1)
    if (registers < most)
      return sumRegisters<A, T, most - 1>(registers, place, dst, revTaps, tapsLen);
  place.template sumBlock<A, T>(std::make_integer_sequence<int, most>(), dst, revTaps, tapsLen);
}

// Full blocks, two that share what is left from between one and two of them, and at the end of the
// outputs a register that may compute some of them again. samples.from(i) is the place of the
// output with the part i.
template <class A, int lanes = lanesOf<Part<A>>, class Samples>
void sumOutputs(Samples samples, A* dst, long count, const A* revTaps, long tapsLen) {
  using F = Part<A>;
  using T = std::conditional_t<lanes == 1, F, V<F, lanes>>;
  constexpr int most = mostRegisters<A>;
  constexpr long outputs = lanes / partsPerElement<A>;
  if constexpr (outputs > 1)
    if (count < outputs)
      return sumOutputs<A, lanes / 2>(samples.narrow(), dst, count, revTaps, tapsLen);

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

}  // namespace mox::kernels
