// The combinations of element types that a FIR filter comes in, as rows of types: the caller's taps
// and data, what the state holds of both, and what sums are made in.
#pragma once

#include "frame/elements.h"
#include "frame/object.h"

namespace mox::fir {

// The identifiers of a combination's states.
struct Ids {
  Mox32s single, multirate;
  Mox32s stream = single, streamMultirate = multirate;  // of states without delay line
};
constexpr Mox32s id(int number) { return objectWord("FI", number); }

// Taps and samples are held, and summed, in floats H.
template <class T, class D, class H = T>
struct Floating {
  using Tap = T;
  using Data = D;
  using HeldTap = H;
  using Held = H;
  using Sum = H;
  // The least taps with an FFT path, for states in the caller's memory and in the library's.
  static constexpr int leastTapsForFft = !Complex<H> ? 64 : sizeof(H) == 8 ? 16 : 32;
  static constexpr int leastTapsForFftAlloc = leastTapsForFft;
};
constexpr int never = 0x7FFFFFFF;

// Taps of 16 bits and a power of two; sums wrap around in 32 bits.
template <class T, class D>
struct FixedPoint {
  using Tap = T;
  using Data = D;
  using HeldTap = D;
  using Held = D;
  using Sum = std::conditional_t<Complex<D>, Mox32sc, Mox32s>;
  static constexpr int leastTapsForFft = never, leastTapsForFftAlloc = never;
  // Larger taps are halved. A complex product takes the negative of a tap, which 16 bits must hold.
  static constexpr unsigned mostTap = 32766;
  static constexpr bool blocksRaiseOddSums = false;
};

struct Fir32f : Floating<Mox32f, Mox32f> {
  static constexpr Ids ids = {id(1), id(3), id(33), id(34)};
};
struct Fir32fc : Floating<Mox32fc, Mox32fc> {
  static constexpr Ids ids = {id(2), id(4)};
};
struct Fir32f16s : Floating<Mox32f, Mox16s> {
  static constexpr Ids ids = {id(5), id(7)};
};
struct Fir32fc16sc : Floating<Mox32fc, Mox16sc> {
  static constexpr Ids ids = {id(6), id(8)};
};
struct Fir32s16s : FixedPoint<Mox32s, Mox16s> {
  static constexpr Ids ids = {id(9), id(11)};
};
struct Fir32sc16sc : FixedPoint<Mox32sc, Mox16sc> {
  static constexpr Ids ids = {id(10), id(12)};
};
// The same states from the caller's floats, which choose the power of two.
struct Fir32s16s32f : FixedPoint<Mox32f, Mox16s> {
  static constexpr Ids ids = Fir32s16s::ids;
};
struct Fir32sc16sc32fc : FixedPoint<Mox32fc, Mox16sc> {
  static constexpr Ids ids = Fir32sc16sc::ids;
};
struct Fir64f : Floating<Mox64f, Mox64f> {
  static constexpr Ids ids = {id(13), id(15)};
};
struct Fir64fc : Floating<Mox64fc, Mox64fc> {
  static constexpr Ids ids = {id(14), id(16)};
};
struct Fir64f32f : Floating<Mox64f, Mox32f> {
  static constexpr Ids ids = {id(17), id(19)};
};
struct Fir64fc32fc : Floating<Mox64fc, Mox32fc> {
  static constexpr Ids ids = {id(18), id(20)};
};
struct Fir64f32s : Floating<Mox64f, Mox32s> {
  static constexpr Ids ids = {id(21), id(23)};
};
// The same states from integer taps; those in the caller's memory always run direct.
struct Fir32s : Floating<Mox32s, Mox32s, Mox64f> {
  static constexpr Ids ids = Fir64f32s::ids;
  static constexpr int leastTapsForFft = never, leastTapsForFftAlloc = 32;
};
struct Fir64fc32sc : Floating<Mox64fc, Mox32sc> {
  static constexpr Ids ids = {id(22), id(24)};
};
struct Fir64f16s : Floating<Mox64f, Mox16s> {
  static constexpr Ids ids = {id(25), id(27)};
};
struct Fir64fc16sc : Floating<Mox64fc, Mox16sc> {
  static constexpr Ids ids = {id(26), id(28)};
};
struct Fir16s : FixedPoint<Mox16s, Mox16s> {
  static constexpr Ids ids = {id(29), id(30), id(31), id(32)};
  static constexpr unsigned mostTap = 32767;
  // With equal factors of scale and taps, odd sums of a block come out one higher.
  static constexpr bool blocksRaiseOddSums = true;
};

// What the form without a state makes of 16-bit taps: fractions, in a state of wider ones.
struct FirDirect16s : FixedPoint<Mox16s, Mox16s> {
  static constexpr Ids ids = Fir32s16s::ids;
  static constexpr int tapsFactor = -15;
};

template <class C>
constexpr bool isFloating = std::is_floating_point_v<Part<typename C::Held>>;

// Whether a caller gives the power of two of fixed-point taps.
template <class C>
constexpr bool takesFactor = std::is_integral_v<Part<typename C::Tap>> && !isFloating<C>;

// Whether samples or results change their type on the way.
template <class C>
constexpr bool converts = !std::is_same_v<typename C::Data, typename C::Sum>;

}  // namespace mox::fir
