// The driver of integer functions with a scale factor.
#pragma once

#include "frame/map.h"
#include "frame/packed24.h"
#include "frame/rounding.h"
#include "frame/widen.h"

namespace mox {

// A block of integers: four registers of 32-bit lanes, which one register of bytes holds.
constexpr long integerBlock = integerBytes;

// A block of results saturated to D.
template <class D, class Put>
[[gnu::always_inline]] inline void storeSaturated(D* dst, const I<Mox32s> (&r)[4], Put put) {
  constexpr int lanes = laneCount<I<Mox32s>>;
  if constexpr (sizeof(D) == 4) {
    for (int j = 0; j < 4; ++j) put(dst + j * lanes, r[j]);
  } else if constexpr (sizeof(D) == 3) {
    storeLanes(dst, r, put);
  } else if constexpr (sizeof(D) == 2) {
    put(dst, packInOrder<D>(r[0], r[1]));
    put(dst + 2 * lanes, packInOrder<D>(r[2], r[3]));
  } else {
    put(dst, packInOrder<D>(packInOrder<Mox16s>(r[0], r[1]), packInOrder<Mox16s>(r[2], r[3])));
  }
}

// Runs one(i) for single elements; blocks go through lanes(), which makes 32-bit integers of
// vectors `Wide`, and are saturated to the parts of D.
template <class Wide, Stores stores = Stores::cached, class D, class One, class Op, class... Source>
void mapToInteger(One one, Op lanes, D* dst, long len, Source... src) {
  constexpr int perElement = partsPerElement<D>, perRegister = laneCount<I<Mox32s>>;
  forBlocks<integerBlock / perElement, integerBytes>(
      bypasses<stores>(dst, len, src...), dst, len, one, [&](long i, auto put) {
        I<Mox32s> r[4];
        for (int j = 0; j < 4; j += laneCount<Wide> / perRegister) {
          const auto wide = lanes(lanesFrom<Wide>(src, i + perRegister * j / perElement)...);
          if constexpr (laneCount<Wide> == perRegister)
            r[j] = saturate<Part<D>>(wide);
          else
            r[j] = saturate<Part<D>>(halves(wide).low),
            r[j + 1] = saturate<Part<D>>(halves(wide).high);
        }
        storeSaturated(parts(dst + i), r, put);
      });
}

// Results in registers of integers: lanes(i) makes those from element i on, one(i, part) a single
// one. All of a block are made before any is stored; where that would change results, since `dst`
// starts within a block of one of the sources, elements go one by one.
template <class D, class One, class Lanes, class... Source>
[[gnu::always_inline]] inline void mapInteger(D* dst, long len, One one, Lanes lanes,
                                              Source... src) {
  constexpr int perVector = integerBytes / int(sizeof(Part<D>)), perElement = partsPerElement<D>;
  constexpr int step = perVector / perElement, vecs = sizeof(Part<D>) == 1 ? 2 : 4;
  const auto vectors = [&]<int count>(std::integral_constant<int, count>) {
    return [&](long i, auto put) {
      I<Part<D>> r[count];
      for (int j = 0; j < count; ++j) r[j] = lanes(i + j * step);
      for (int j = 0; j < count; ++j) put(dst + i + j * step, r[j]);
    };
  };
  const auto element = [&](long i) {
    Part<D> r[perElement];
    for (int part = 0; part < perElement; ++part) r[part] = one(i, part);
    for (int part = 0; part < perElement; ++part) store(parts(dst + i) + part, r[part]);
  };
  if ((runsAhead(dst, src, integerBytes * vecs) || ...)) [[unlikely]]
    for (long i = 0; i < len; ++i) element(i);
  else
    forBlocks<vecs * step, integerBytes, step>(false, dst, len, element,
                                               vectors(std::integral_constant<int, vecs>()),
                                               vectors(std::integral_constant<int, 1>()));
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
      mapToInteger<ExactVector<bound>>(
          one, [&](auto... v) { return rule(exact(v...)); }, dst, len, src...);
    else
      for (long i = 0; i < len; ++i) one(i);
  });
}

}  // namespace mox
