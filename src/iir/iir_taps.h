// Taps on their way into a state, and what follows from them.
#pragma once

#include "convert/samples.h"
#include "frame/work_buffer.h"
#include "iir/iir_state.h"

namespace mox::iir {

// Sets the taps of section after section: b[0..order], a[0..order] each. moxErrDivByZero where a[0]
// is zero or, in a cascade, b[0]: that section and those behind it keep their taps.
template <class E>
MoxStatus setTaps(State<E>& s, const E* taps, bool isCascade);

// The caller's taps as floats: integers are scaled by 2^-tapsFactor and rounded, in memory taken
// for that.
template <class C>
class HeldTaps {
 public:
  using Held = typename C::Held;

  HeldTaps(const typename C::Tap* taps, long count, int tapsFactor)
      : memory_(nullptr, C::tapsHaveFactor ? count * long(sizeof(Held)) : 0) {
    if constexpr (C::tapsHaveFactor) {
      Held* const held = memory_.template as<Held>();
      if (!failed())
        convert::convertScaledValues(parts(taps), parts(held), count * partsPerElement<Held>,
                                     tapsFactor);
      taps_ = held;
    } else {
      taps_ = taps;
    }
  }

  bool failed() const { return memory_.failed(); }
  const Held* get() const { return taps_; }

 private:
  WorkBuffer memory_;
  const Held* taps_;
};

}  // namespace mox::iir
