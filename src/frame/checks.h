// The argument checks that nearly all functions share: pointers first, then the length.
#pragma once

#include <moxsp/types.h>

namespace mox {

template <class... P>
bool anyNull(const P*... pointers) {
  return ((pointers == nullptr) || ...);
}

inline MoxStatus checkLength(long len, long least = 1) {
  return len < least ? MoxStatus(moxErrSize) : moxOk;
}

template <class... P>
MoxStatus checkArrays(long len, const P*... arrays) {
  return anyNull(arrays...) ? MoxStatus(moxErrNullPtr) : checkLength(len);
}

}  // namespace mox
