// The driver of integer functions with a scale factor.
#pragma once

#include "frame/map.h"
#include "frame/packed24.h"
#include "frame/rounding.h"
#include "frame/widen.h"

namespace mox {

// Consecutive 32-bit integers as registers of D, saturated.
template <class D, class T, int count>
[[gnu::always_inline]] inline auto saturatedRegisters(const Registers<T, count>& r) {
  if constexpr (sizeof(D) == 4) {
    return r;
  } else if constexpr (sizeof(D) == 3) {
    return packedLanes(r);
  } else if constexpr (count == 1) {
    if constexpr (sizeof(D) == 2)
      return Registers{narrowed<D>(r.of[0])};
    else
      return Registers{narrowed<D>(narrowed<Mox16s>(r.of[0]))};
  } else if constexpr (sizeof(D) == 2) {
    Registers<V<D, 2 * laneCount<T>>, count / 2> words;
    for (int j = 0; j < count / 2; ++j) words.of[j] = packInOrder<D>(r.of[2 * j], r.of[2 * j + 1]);
    return words;
  } else {
    const auto words = saturatedRegisters<Mox16s>(r);
    if constexpr (count == 2)
      return Registers{narrowed<D>(words.of[0])};
    else
      return Registers{packInOrder<D>(words.of[0], words.of[1])};
  }
}

namespace detail {
// A register of what from(part) makes, `count` lanes at a time.
template <class R, int count, class From>
[[gnu::always_inline]] inline R joined(From from, int part) {
  if constexpr (laneCount<R> == count) {
    return from(part);
  } else {
    using Half = V<Lane<R>, laneCount<R> / 2>;
    return join<R>(joined<Half, count>(from, part),
                   joined<Half, count>(from, part + laneCount<Half>));
  }
}
}  // namespace detail

// Results go through lanes(), which makes 32-bit integers of vectors like `Wide`, and are saturated
// to the parts of D. one(i) stores a single element. A step of bytes or 32-bit integers fills a
// register, one of 16 bits two; `narrows` says that lanes() takes shorter vectors than `Wide`.
template <class Wide, Stores stores = Stores::cached, bool narrows = false, class D, class One,
          class Op, class... Source>
[[gnu::always_inline]] inline void mapToInteger(One one, Op lanes, D* dst, long len,
                                                Source... src) {
  constexpr int perElement = partsPerElement<D>, size = sizeof(Part<D>);
  constexpr int round = integerBytes / perElement, wide = laneCount<Wide> / perElement;
  constexpr int step = size == 4 ? std::max(round / 4, wide) : round;
  constexpr int least = size == 3 ? 16 : narrows ? 4 / perElement : wide;
  const auto at = [&]<int n>(std::integral_constant<int, n>, long i)
      __attribute__((always_inline)) {
    constexpr int parts = n * perElement, perRegister = std::min(parts, laneCount<I<Mox32s>>);
    constexpr int perWide = std::min(parts, laneCount<Wide>);
    const auto from = [&](int part) __attribute__((always_inline)) {
      return saturate<Part<D>>(
          lanes(lanesFrom<V<Lane<Wide>, perWide>>(src, i + part / perElement)...));
    };
    using R = V<Mox32s, perRegister>;
    Registers<R, parts / perRegister> r;
    for (int j = 0, part = 0; part < parts; ++j, part += perRegister) {
      if constexpr (perWide <= perRegister) {
        r.of[j] = detail::joined<R, perWide>(from, part);
      } else {
        const auto [low, high] = halves(from(part));
        r.of[j] = low, r.of[++j] = high;
        part += perRegister;
      }
    }
    return saturatedRegisters<Part<D>>(r);
  };
  forSteps<step, round / step, least>(bypasses<stores>(dst, len, src...), dst, len, at, one);
}

// Results in registers of integers, or of as many as `step` elements: lanes(n, i) makes those of n
// elements from i on, where n is the type of a number; one(i, part) makes a single part. Where
// `dst` starts within a source, elements go one by one: each is the function of what the ones
// before it have left.
template <int step, int least, class D, class One, class Lanes, class... Source>
[[gnu::always_inline]] inline void mapInteger(D* dst, long len, One one, Lanes lanes,
                                              Source... src) {
  constexpr int perElement = partsPerElement<D>;
  const auto element = [&](long i) {
    Part<D> r[perElement];
    for (int part = 0; part < perElement; ++part) r[part] = one(i, part);
    for (int part = 0; part < perElement; ++part) store(parts(dst + i) + part, r[part]);
  };
  if ((runsAhead(dst, src, len * long(sizeof(D))) || ...)) [[unlikely]]
    for (long i = 0; i < len; ++i) element(i);
  else
    forSteps<step, sizeof(Part<D>) == 1 ? 2 : 4, least>(
        bypasses<Stores::bypassing>(dst, len, src...), dst, len,
        [&](auto n, long i) { return Registers{lanes(n, i)}; }, element);
}

// dst[i] = exact(src[i]...) by the scale rule, part by part, where exact stays within `bound`.
// It takes scalars of Exact<bound> or, up to 2^53, vectors; all loads of a block come before
// its stores. Results of more than 31 bits, and complex ones made of real sources, go one by one.
template <int bound, class D, class Op, class... Source>
void mapScaled(int factor, Op exact, D* dst, long len, Source... src) {
  constexpr bool alike = ((partsPerElement<ElementOf<Source>> == partsPerElement<D>)&&...);
  constexpr bool fits = Limits<Part<D>>::max < Int128(1) << 31;
  Scale<Part<D>, bound>(factor).withRule([&](auto rule) __attribute__((always_inline)) {
    using R = Exact<bound>;
    const auto one = [&](long i) {
      for (int part = 0; part < partsPerElement<D>; ++part)
        store(parts(dst + i) + part,
              saturate<Part<D>>(rule(R(exact(R(partFrom(src, i, part))...)))));
    };
    if constexpr (hasExactVector<bound> && alike && fits)
      mapToInteger<ExactVector<bound>, Stores::cached, true>(
          one, [&](auto... v) { return rule(exact(v...)); }, dst, len, src...);
    else
      for (long i = 0; i < len; ++i) one(i);
  });
}

// The same by one rule, for 16-bit elements, where op.wide() makes the exact results in two halves.
template <int bound, class D, class Op, class... Source>
[[gnu::always_inline]] inline void mapWide(auto rule, Op op, D* dst, long len, Source... src) {
  using T = Part<D>;
  mapInteger<integerBytes / sizeof(D), 16 / sizeof(D)>(
      dst, len,
      [&](long i, int part) {
        using R = Exact<bound>;
        return saturate<T>(rule(R(op(R(partFrom(src, i, part))...))));
      },
      [&](auto n, long i) {
        const auto r = op.wide(lanesFrom<V<T, n * partsPerElement<D>>>(src, i)...);
        return packBlocks<T>(BlockHalves{rule(r.low), rule(r.high)});
      },
      src...);
}

}  // namespace mox
