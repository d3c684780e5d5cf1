// Cyclic convolutions of one small length: y is the sum of the rotations of h, each times one x.
#include <moxsp/corr.h>

#include <algorithm>

#include "frame/export.h"
#include "frame/rounding.h"
#include "frame/vec/vec.h"

namespace mox::corr {
namespace {

// h[(k - j) mod n] as element k of n, which are `width` lanes each.
template <int j, int width, class T>
T rotated(T h) {
  constexpr int lanes = laneCount<T>;
  return shuffle<[](int lane) { return (lane - j * width + lanes) % lanes; }>(h);
}

// Runs each(j) for j = 0, step, 2 * step .. below n.
template <int n, int step, class Each>
void forRotations(Each each) {
  [&]<int... i>(std::integer_sequence<int, i...>) {
    (each(std::integral_constant<int, i * step>()), ...);
  }
  (std::make_integer_sequence<int, n / step>());
}

template <int n, class E>
MoxStatus cyclic(const Mox32f* x, const E* h, E* y) {
  if (anyNull(x, h, y)) return moxErrNullPtr;
  constexpr int width = partsPerElement<E>;
  using T = V<Mox32f, n * width>;
  const T elements = load<T>(h);
  T sum{};
  forRotations<n, 1>(
      [&](auto j) { sum += broadcast<T>(load<Mox32f>(x + j)) * rotated<j, width>(elements); });
  store(y, sum);
  return moxOk;
}

// Two rotations at a time.
MoxStatus cyclicScaled(const Mox16s* x, const Mox16s* h, Mox16s* y, int scaleFactor) {
  if (anyNull(x, h, y)) return moxErrNullPtr;
  using Words = V<Mox16s, 8>;
  const auto elements = load<Words>(h);
  V<Mox32s, 4> low{}, high{};
  forRotations<8, 2>([&](auto j) {
    const auto a = rotated<j, 1>(elements), b = rotated<j + 1, 1>(elements);
    const auto pair = Words(broadcast<V<Mox32s, 4>>(load<Mox32s>(x + j)));
    low = addWrapping(low, multiplyAddPairs(pair, unpackLow<Mox16s>(a, b)));
    high = addWrapping(high, multiplyAddPairs(pair, unpackHigh<Mox16s>(a, b)));
  });
  Scale<Mox16s, 31>(std::clamp(scaleFactor, -31, 31)).withRule([&](auto rule) {
    store(y, packInOrder<Mox16s>(rule(low), rule(high)));
  });
  return moxOk;
}

}  // namespace

MOX_EXPORT(moxsConvCyclic8x8_32f, cyclic<8>);
MOX_EXPORT(moxsConvCyclic8x8_16s_Sfs, cyclicScaled);
MOX_EXPORT(moxsConvCyclic4x4_32f32fc, cyclic<4>);

}  // namespace mox::corr
