// The combinations of element types that a FIR filter comes in, as rows of types: the caller's taps
// and data, what the state holds of both, and what sums are made in.
#pragma once

#include "frame/object.h"

namespace mox::fir {

// The identifiers of a combination's states.
struct Ids {
  Mox32s single, multirate;
  Mox32s stream = single, streamMultirate = multirate;  // of states without delay line

  constexpr bool hasStream() const { return stream != single; }
};
constexpr Mox32s id(int number) { return objectWord("FI", number); }

struct Fir32f {
  using Tap = Mox32f;
  using Data = Mox32f;
  using HeldTap = Mox32f;
  using Held = Mox32f;
  using Sum = Mox32f;
  static constexpr Ids ids = {id(1), id(3), id(33), id(34)};
};
struct Fir32fc {
  using Tap = Mox32fc;
  using Data = Mox32fc;
  using HeldTap = Mox32fc;
  using Held = Mox32fc;
  using Sum = Mox32fc;
  static constexpr Ids ids = {id(2), id(4)};
};
struct Fir32f16s {
  using Tap = Mox32f;
  using Data = Mox16s;
  using HeldTap = Mox32f;
  using Held = Mox32f;
  using Sum = Mox32f;
  static constexpr Ids ids = {id(5), id(7)};
};
struct Fir64f {
  using Tap = Mox64f;
  using Data = Mox64f;
  using HeldTap = Mox64f;
  using Held = Mox64f;
  using Sum = Mox64f;
  static constexpr Ids ids = {id(13), id(15)};
};
struct Fir64fc {
  using Tap = Mox64fc;
  using Data = Mox64fc;
  using HeldTap = Mox64fc;
  using Held = Mox64fc;
  using Sum = Mox64fc;
  static constexpr Ids ids = {id(14), id(16)};
};

}  // namespace mox::fir
