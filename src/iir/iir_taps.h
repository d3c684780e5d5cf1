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

// Integer taps are scaled by 2^-tapsFactor and rounded to floats in memory taken for that.
template <class C>
MoxStatus setTapsOf(StateOf<C>& s, const typename C::Tap* taps, int tapsFactor, bool isCascade) {
  if constexpr (C::tapsHaveFactor) {
    using Held = typename C::Held;
    const long count = 2L * (s.order + 1) * s.sections;
    const WorkBuffer floats(nullptr, int(count * long(sizeof(Held))));
    if (floats.failed()) return moxErrMemAlloc;
    convert::convertScaledValues(parts(taps), parts(floats.as<Held>()),
                                 count * partsPerElement<Held>, tapsFactor);
    return setTaps<Held>(s, floats.as<Held>(), isCascade);
  } else {
    return setTaps(s, taps, isCascade);
  }
}

}  // namespace mox::iir
