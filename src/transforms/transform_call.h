// What every run of a transform begins with.
#pragma once

#include "frame/checks.h"
#include "frame/object.h"

namespace mox::transforms {

// The object is looked at before the arrays.
template <class Head>
MoxStatus checkCall(const Head* object, Mox32s id, bool anyArrayNull) {
  if (anyNull(object)) return moxErrNullPtr;
  if (MoxStatus s = requireId(object, id)) return s;
  return anyArrayNull ? MoxStatus(moxErrNullPtr) : moxOk;
}

}  // namespace mox::transforms
