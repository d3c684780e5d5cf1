// The combinations of element types that an IIR filter comes in, as rows of types: the caller's
// taps and data, and the floats that the state holds and computes with.
#pragma once

#include "frame/elements.h"
#include "frame/object.h"

namespace mox::iir {

// A filter of any order, a cascade of second-order sections, or such a cascade in direct form I.
enum class Form { ar, biquad, directForm1 };

constexpr Mox32s id(int number) { return objectWord("II", number); }

// Taps that are integers are held as floats.
template <class Tap>
using HeldAs = std::conditional_t<std::is_same_v<Tap, Mox32s>, Mox32f,
                                  std::conditional_t<std::is_same_v<Tap, Mox32sc>, Mox32fc, Tap>>;

// The number of its identifier: odd for any order, the next one for cascades. Two combinations
// come in direct form I as well.
template <class TapType, class DataType, int number, int directNumber = 0>
struct Combination {
  using Tap = TapType;
  using Data = DataType;
  using Held = HeldAs<Tap>;
  static constexpr bool tapsHaveFactor = !std::is_same_v<Tap, Held>;
  static constexpr bool hasDirectForm1 = directNumber != 0;

  static constexpr Mox32s ar = id(number), biquad = id(number + 1),
                          directForm1 = hasDirectForm1 ? id(directNumber) : biquad;
  static constexpr Mox32s idOf(Form form) {
    return form == Form::ar ? ar : form == Form::biquad ? biquad : directForm1;
  }
};

using Iir32f = Combination<Mox32f, Mox32f, 1, 29>;
using Iir32fc = Combination<Mox32fc, Mox32fc, 3>;
using Iir32f16s = Combination<Mox32f, Mox16s, 5>;
using Iir32fc16sc = Combination<Mox32fc, Mox16sc, 7>;
using Iir32s16s = Combination<Mox32s, Mox16s, 9>;
using Iir32s16s32f = Combination<Mox32f, Mox16s, 9>;
using Iir32sc16sc = Combination<Mox32sc, Mox16sc, 11>;
using Iir32sc16sc32fc = Combination<Mox32fc, Mox16sc, 11>;
using Iir64f = Combination<Mox64f, Mox64f, 13>;
using Iir64fc = Combination<Mox64fc, Mox64fc, 15>;
using Iir64f32f = Combination<Mox64f, Mox32f, 17>;
using Iir64fc32fc = Combination<Mox64fc, Mox32fc, 19>;
using Iir64f32s = Combination<Mox64f, Mox32s, 21, 30>;
using Iir64fc32sc = Combination<Mox64fc, Mox32sc, 23>;
using Iir64f16s = Combination<Mox64f, Mox16s, 25>;
using Iir64fc16sc = Combination<Mox64fc, Mox16sc, 27>;

}  // namespace mox::iir
