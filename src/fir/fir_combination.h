// The combinations of element types that a FIR filter comes in.
#pragma once

#include <cstring>
#include <type_traits>

#include "convert/convert.h"
#include "fir/fir_state.h"
#include "frame/elements.h"
#include "frame/object.h"

namespace mox {

// `Held` is the type of the taps and samples in the state and of the sums; `number` is that of the
// single-rate state's identifier, `streamNumber` that of a state without delay line.
template <class TapType, class DataType, class Held, int number, int streamNumber = 0>
struct Combination {
  using Tap = TapType;
  using Data = DataType;
  using Acc = Held;

  static constexpr Mox32s singleRate = objectWord("FI", number);
  static constexpr Mox32s multirate = objectWord("FI", number + 2);
  static constexpr bool hasStream = streamNumber != 0;
  static constexpr Mox32s stream = objectWord("FI", streamNumber);
  static constexpr Mox32s streamMultirate = objectWord("FI", streamNumber + 1);
  static constexpr bool converts = !std::is_same_v<Data, Acc>;

  // Samples on their way in.
  static void enter(const Data* src, Acc* dst, long len) {
    if constexpr (converts)
      convertValues(parts(src), parts(dst), len * partsPerElement<Data>);
    else
      std::memcpy(dst, src, len * sizeof(Acc));
  }

  // Results on their way out: integers times 2^-scaleFactor, to nearest.
  static void leave(const Acc* src, Data* dst, long len, int scaleFactor) {
    if constexpr (std::is_integral_v<Part<Data>>)
      convertToInteger(parts(src), parts(dst), len * partsPerElement<Data>, moxRoundNearEven,
                       scaleFactor);
    else if constexpr (converts)
      convertValues(parts(src), parts(dst), len * partsPerElement<Data>);
    else
      std::memcpy(dst, src, len * sizeof(Acc));
  }

  // The first samples of a long block go through the delay store, for they need the history before
  // them; the others are read where they are. All of a short block go through it.
  static constexpr long lanes = sizeof(Acc) == sizeof(Mox32f) ? 8 : 4;
  static long outputsFromStore(long tapsLen) { return (tapsLen + lanes - 1) & -lanes; }
  static long shortBlock(long tapsLen) {
    return outputsFromStore(tapsLen) + (std::is_same_v<Data, Mox32fc> ? 0 : 1);
  }
};

using Fir32f = Combination<Mox32f, Mox32f, Mox32f, 1, 33>;
using Fir32fc = Combination<Mox32fc, Mox32fc, Mox32fc, 2>;
using Fir32f16s = Combination<Mox32f, Mox16s, Mox32f, 5>;
using Fir64f = Combination<Mox64f, Mox64f, Mox64f, 13>;
using Fir64fc = Combination<Mox64fc, Mox64fc, Mox64fc, 14>;

// A single element in another type, toward zero where that has no fraction.
template <class To, class From>
To converted(From e) {
  if constexpr (Complex<From>)
    return {Part<To>(e.re), Part<To>(e.im)};
  else
    return To(e);
}

}  // namespace mox
