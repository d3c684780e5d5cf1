// The stages of an out-of-order DFT and its leaves, on interleaved parts of complex numbers.
#pragma once

#include "transforms/dft_out_ord.h"
#include "transforms/dft_passes.h"
#include "transforms/dft_small.h"
#include "transforms/fft_small.h"

namespace mox::transforms {
namespace detail {

// visit(k, place) for the bins of a transform of n numbers and their places, both constants.
template <int n, class Visit>
[[gnu::always_inline]] inline void eachPlace(Visit visit) {
  unrolled<n>([&](auto k) __attribute__((always_inline)) {
    visit(k, std::integral_constant<int, digitReversed(k, n)>());
  });
}

// How the stages hold their numbers: `parts` reals to a step along a block, `numberParts` from one
// number of a block to the next, and `twiddleParts` to the twiddles of a step.
//
// Parts interleaved, as the caller has them;
template <class F_>
struct Interleaved {
  using F = F_;
  using Z = V<F>;
  static constexpr long parts = lanesOf<F>, numberParts = 2, twiddleParts = parts;
  static Z get(const F* p) { return load<Z>(p); }
  static void put(F* p, Z z) { store(p, z); }
  template <Direction d>
  static Z turned(Z z, const F* twiddle) {
    const V<F> w = load<V<F>>(twiddle), im = imaginaryParts(w);
    return times(z, realParts(w), d == Direction::forward ? im : -im);
  }
};
// real and imaginary parts in vectors of their own;
template <class F_>
struct Apart {
  using F = F_;
  using Z = Pair<V<F>>;
  static constexpr long parts = 2 * lanesOf<F>, numberParts = 2, twiddleParts = parts;
  static Z get(const F* p) {
    return {inRegister(load<V<F>>(p)), inRegister(load<V<F>>(p + lanesOf<F>))};
  }
  static void put(F* p, Z z) { store(p, z.re), store(p + lanesOf<F>, z.im); }
  template <Direction d>
  static Z turned(Z z, const F* twiddle) {
    return rotated<d>(z, get(twiddle));
  }
};
// interleaved in memory and apart in registers, in the order that takes the fewest instructions;
template <class F>
struct Crossed : Apart<F> {
  using Z = Pair<V<F>>;
  static Z get(const F* p) { return deinterleaved(load<V<F>>(p), load<V<F>>(p + lanesOf<F>)); }
  static void put(F* p, Z z) {
    store(p, interleavedLow(z)), store(p + lanesOf<F>, interleavedHigh(z));
  }
};
// numbers of one place in as many blocks as a vector has lanes.
template <class F>
struct Across : Apart<F> {
  using Z = Pair<V<F>>;
  static constexpr long numberParts = Apart<F>::parts, twiddleParts = 2;
  template <Direction d>
  static Z turned(Z z, const F* twiddle) {
    return rotated<d>(z, Z{broadcast<V<F>>(twiddle[0]), broadcast<V<F>>(twiddle[1])});
  }
};

// A stage over `blocks` blocks. Where their numbers fill no whole number of vectors, the last step
// reaches back over the one before it: it is computed before that is overwritten, and put in place
// at the end. `turns`: whether the stage has twiddles.
template <Direction d, int radix, class Source, class Target, bool turns = true>
[[gnu::flatten]] void stageKernel(const typename Source::F* src, typename Source::F* dst,
                                  const OutOrdStage<typename Source::F>& stage, long blocks) {
  using F = typename Source::F;
  constexpr bool splits = d == Direction::forward;
  constexpr long parts = Source::parts,
                 twiddleParts = turns ? Source::twiddleParts * (radix - 1) : 0;
  const long apart = Source::numberParts * stage.columns;
  const long rest = std::is_same_v<Source, Interleaved<F>> ? apart % parts : 0;
  const auto step = [apart](const F* from, F* to, long toApart, const F* twiddle) {
    typename Source::Z a[radix];
    const auto turn = [&](auto j) {
      if constexpr (turns && j > 0)
        a[j] = Source::template turned<d>(a[j], twiddle + (j - 1) * Source::twiddleParts);
    };
    eachPlace<radix>([&](auto j, auto place) {
      a[j] = Source::get(from + (splits ? j : place) * apart);
      if (!splits) turn(j);
    });
    butterfly<d, F>(a);
    eachPlace<radix>([&](auto j, auto place) {
      if (splits) turn(j);
      Target::put(to + (splits ? place : j) * toApart, a[j]);
    });
  };
  for (; blocks > 0; --blocks, src += radix * apart, dst += radix * apart) {
    const F* twiddle = stage.twiddle;
    alignas(vectorBytes) F held[parts * radix];
    if (rest) step(src + apart - parts, held, parts, twiddle + apart / parts * twiddleParts);
    for (long t = 0; t + parts <= apart; t += parts, twiddle += twiddleParts)
      step(src + t, dst + t, apart, twiddle);
    if (rest)
      for (int j = 0; j < radix; ++j)
        store(dst + j * apart + apart - parts, load<V<F>>(held + j * parts));
  }
}

// Blocks of `radix` numbers, as many at a time as a vector has.
template <Direction d, int radix, class F>
[[gnu::flatten]] void leafKernel(const F* src, F* dst, long blocks, F factor) {
  constexpr int numbers = lanesOf<F> / 2;
  constexpr bool splits = d == Direction::forward;
  for (; blocks > 0; blocks -= numbers, src += numbers * 2 * radix, dst += numbers * 2 * radix) {
    V<F> a[radix], placed[radix];
    for (int first = 0; first < radix; first += numbers) {
      V<F> square[numbers];
      loadColumns(reinterpret_cast<const ComplexOf<F>*>(src) + first, radix, square);
      for (int i = 0; i < numbers; ++i) placed[first + i] = square[i] * factor;
    }
    eachPlace<radix>([&](auto k, auto place) { a[k] = placed[splits ? k : place]; });
    butterfly<d, F>(a);
    eachPlace<radix>([&](auto k, auto place) { placed[splits ? place : k] = a[k]; });
    for (int first = 0; first < radix; first += numbers) {
      V<F> square[numbers];
      for (int i = 0; i < numbers; ++i) square[i] = placed[first + i];
      transposeNumbers(square);
      for (int i = 0; i < numbers; ++i) store(dst + 2 * (i * radix + first), square[i]);
    }
  }
}

// A whole transform of n numbers.
template <Direction d, int n, class F>
[[gnu::flatten]] void smallKernel(const F* src, F* dst, F factor) {
  constexpr bool splits = d == Direction::forward;
  const Array<const ComplexOf<F>> from = {reinterpret_cast<const ComplexOf<F>*>(src)};
  const Array<ComplexOf<F>> to = {reinterpret_cast<ComplexOf<F>*>(dst)};
  decltype(loadNumber(from, 0)) a[n];
  eachPlace<n>([&](auto k, auto place) { a[k] = loadNumber(from, splits ? k : place); });
  butterfly<d, F>(a);
  eachPlace<n>([&](auto k, auto place) { storeNumber(to, splits ? place : k, a[k] * factor); });
}

// Rows of `len` numbers into the lanes of a tile, number i to `at[i]`; and back.
template <class F, class Row>
[[gnu::always_inline]] inline void takeAcross(Row row, long len, F factor, F* tile, const int* at) {
  constexpr int l = lanesOf<F>, numbers = l / 2;
  for (long t = 0; t < len; t += numbers) {
    const long first = std::min(t, len - numbers);
    V<F> square[l];
    for (int i = 0; i < l; ++i) square[i] = load<V<F>>(row(i) + 2 * first) * factor;
    transpose(square);
    for (int i = 0; i < numbers; ++i)
      Across<F>::put(tile + 2 * l * at[first + i], {square[2 * i], square[2 * i + 1]});
  }
}
template <class F, class Row>
[[gnu::always_inline]] inline void giveAcross(const F* tile, const int* at, long len, Row row) {
  constexpr int l = lanesOf<F>, numbers = l / 2;
  for (long t = 0; t < len; t += numbers) {
    const long first = std::min(t, len - numbers);
    V<F> square[l];
    for (int i = 0; i < numbers; ++i) {
      const auto z = Across<F>::get(tile + 2 * l * at[first + i]);
      square[2 * i] = z.re, square[2 * i + 1] = z.im;
    }
    transpose(square);
    for (int i = 0; i < l; ++i) store(row(i) + 2 * first, square[i]);
  }
}

}  // namespace detail
}  // namespace mox::transforms
