// The driver of integer functions with a scale factor.
#pragma once

#include "frame/map.h"
#include "frame/packed24.h"
#include "frame/rounding.h"
#include "frame/widen.h"

namespace mox {

// Sixteen results saturated to D.
template <class D, class Put>
[[gnu::always_inline]] inline void storeSaturated(D* dst, const V<Mox32s, 4> (&r)[4], Put put) {
  if constexpr (sizeof(D) == 4) {
    for (int j = 0; j < 4; ++j) put(dst + 4 * j, r[j]);
  } else if constexpr (sizeof(D) == 3) {
    storeLanes(dst, r, put);
  } else if constexpr (sizeof(D) == 2) {
    put(dst, packSaturated<D>(r[0], r[1]));
    put(dst + 8, packSaturated<D>(r[2], r[3]));
  } else {
    put(dst,
        packSaturated<D>(packSaturated<Mox16s>(r[0], r[1]), packSaturated<Mox16s>(r[2], r[3])));
  }
}

// Runs one(i) for single elements; blocks go through lanes(), which makes 32-bit integers of
// vectors `Wide`, and are saturated to the parts of D.
template <class Wide, Stores stores = Stores::cached, class D, class One, class Op, class... Source>
void mapToInteger(One one, Op lanes, D* dst, long len, Source... src) {
  constexpr int perElement = partsPerElement<D>;
  forBlocks<16 / perElement, 16>(
      bypasses<stores>(dst, len, src...), dst, len, one, [&](long i, auto put) {
        V<Mox32s, 4> r[4];
        for (int j = 0; j < 4; j += laneCount<Wide> / 4) {
          const auto wide = lanes(lanesFrom<Wide>(src, i + 4 * j / perElement)...);
          if constexpr (laneCount<Wide> == 4)
            r[j] = saturate<Part<D>>(wide);
          else
            r[j] = saturate<Part<D>>(halves(wide).low),
            r[j + 1] = saturate<Part<D>>(halves(wide).high);
        }
        storeSaturated(parts(dst + i), r, put);
      });
}

// Results in vectors of 16 bytes: lanes(i) makes those from element i on, one(i, part) a single
// one. All of a block are made before any is stored; where that would tell, as `dst` starts within
// a block of one of the sources, elements go one by one.
template <class D, class One, class Lanes, class... Source>
[[gnu::always_inline]] inline void mapInteger(D* dst, long len, One one, Lanes lanes,
                                              Source... src) {
  constexpr int perVector = 16 / int(sizeof(Part<D>)), perElement = partsPerElement<D>;
  constexpr int step = perVector / perElement, vecs = perVector == 16 ? 2 : 4;
  const auto vectors = [&]<int count>(std::integral_constant<int, count>) {
    return [&](long i, auto put) {
      V<Part<D>, perVector> r[count];
      for (int j = 0; j < count; ++j) r[j] = lanes(i + j * step);
      for (int j = 0; j < count; ++j) put(dst + i + j * step, r[j]);
    };
  };
  const auto element = [&](long i) {
    Part<D> r[perElement];
    for (int part = 0; part < perElement; ++part) r[part] = one(i, part);
    for (int part = 0; part < perElement; ++part) store(parts(dst + i) + part, r[part]);
  };
  if ((runsAhead(dst, src, 16 * vecs) || ...)) [[unlikely]]
    for (long i = 0; i < len; ++i) element(i);
  else
    forBlocks<vecs * step, 16, step>(false, dst, len, element,
                                     vectors(std::integral_constant<int, vecs>()),
                                     vectors(std::integral_constant<int, 1>()));
}

// dst[i] = exact(src[i]...) by the scale rule, part by part, where exact stays within 2^magnitude.
// It takes scalars of Exact<magnitude> or, up to 2^53, vectors of four; all loads of a block come
// before its stores.
template <int magnitude, class D, class Op, class... Source>
void mapScaled(int factor, Op exact, D* dst, long len, Source... src) {
  constexpr bool alike = ((partsPerElement<ElementOf<Source>> == partsPerElement<D>)&&...);
  constexpr bool fits = Limits<Part<D>>::max < Int128(1) << 31;
  Scale<Part<D>, magnitude>(factor).withRule([&](auto rule) __attribute__((always_inline)) {
    using R = Exact<magnitude>;
    const auto one = [&](long i) {
      for (int part = 0; part < partsPerElement<D>; ++part)
        store(parts(dst + i) + part,
              saturate<Part<D>>(rule(R(exact(R(partFrom(src, i, part))...)))));
    };
    if constexpr (hasExactVector<magnitude> && alike && fits)
      mapToInteger<ExactVector<magnitude>>(
          one, [&](auto... v) { return rule(exact(v...)); }, dst, len, src...);
    else
      for (long i = 0; i < len; ++i) one(i);
  });
}

}  // namespace mox
