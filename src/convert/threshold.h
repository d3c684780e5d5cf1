// What the thresholds on real and on complex elements share.
#pragma once

#include <moxsp/threshold.h>

#include "frame/checks.h"
#include "frame/elements.h"

namespace mox::convert {

// LT or GT by an operator, which is looked at after all else. `Levels` checks the level.
template <class Levels, auto less, auto greater, class E>
MoxStatus byOperator(const E* src, E* dst, int len, Part<E> level, int relOp) {
  if (relOp == moxThresholdLess) return less(src, dst, len, level);
  if (relOp == moxThresholdGreater) return greater(src, dst, len, level);
  if (MoxStatus s = checkArrays(len, src, dst)) return s;
  if (MoxStatus s = Levels::check(level)) return s;
  return moxErrBadArg;
}

}  // namespace mox::convert
