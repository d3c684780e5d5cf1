// The kinds of transform objects on integers, each of which runs an object on floats.
#pragma once

#include <climits>

#include "transforms/fft_object.h"

namespace mox::transforms {

template <class F>
struct IntegerFftSpec : MoxsFFTSpec {
  F normFactor;
  FftSpec<F>* floats;  // null where a transform of one number has no room for it
};

// Base is the kind of the object on floats.
template <class Base, FftKind kind>
struct IntegerKind {
  using Float = typename Base::Float;
  using Head = MoxsFFTSpec;
  using Record = IntegerFftSpec<Float>;
  static constexpr FftKind id = kind;
  static constexpr int alignment = fftAlignment;
  static constexpr bool releaseClearsId = true;
  static constexpr int maxOrder = Base::maxOrder;
  static constexpr int maxSmallOrder = -1;

  // An object of the least size, whose runs need no memory.
  static constexpr bool isBare(int order) { return order == 0 && kind <= fftReal16s; }

  struct Shape {
    int order;
    constexpr void layout(Arena& arena, Record& spec) const {
      if (isBare(order)) return;
      spec.floats = placeRecord<FftSpec<Float>>(arena, typename Base::Shape{order});
    }
  };

  static constexpr long tablesFigure(int order) {
    return (isBare(order) ? 116 : transforms::specFigure<Base>(order) + 128) - fftTablesSlack;
  }

  // A run has its numbers as floats in front of the work memory of the transform.
  static constexpr long areaBytes(int order) {
    constexpr bool isReal = std::is_same_v<Base, RealKind<Float>>;
    const long floats = isReal ? (1L << order) + 2 : 2L << order;
    return wholeLines(floats * long(sizeof(Float)));
  }
  static constexpr long floatWorkBytes(int order) {
    return order > Base::maxSmallOrder ? Base::workBytes(order) : 0;
  }
  // No memory holds the largest order.
  static constexpr bool hasArea(int order) {
    return areaBytes(order) + floatWorkBytes(order) + fftAlignment <= INT_MAX;
  }
  static constexpr long workBytes(int order) {
    if (isBare(order)) return 0;
    return floatWorkBytes(order) + (hasArea(order) ? areaBytes(order) : 0);
  }

  static void fill(Record& spec, int order, QuarterSine<Float> sine) {
    if (isBare(order)) return;
    FftSpec<Float>& floats = *spec.floats;
    static_cast<MoxsFFTSpec&>(floats) = spec;
    floats.normFactor = spec.normFactor;
    if (order > Base::maxSmallOrder) Base::fill(floats, order, sine);
  }
};

using C16sc = IntegerKind<ComplexKind<Mox32f, fftComplex32fc>, fftComplex16sc>;
using C16s = IntegerKind<ComplexKind<Mox32f, fftComplex32fc>, fftComplex16s>;
using R16s = IntegerKind<RealKind<Mox32f>, fftReal16s>;
using C32sc = IntegerKind<ComplexKind<Mox64f, fftComplex64fc>, fftComplex32sc>;
using C32s = IntegerKind<ComplexKind<Mox64f, fftComplex64fc>, fftComplex32s>;
using R32s = IntegerKind<RealKind<Mox64f>, fftReal32s>;
using R16s32s = IntegerKind<RealKind<Mox32f>, fftReal16s32s>;

}  // namespace mox::transforms
