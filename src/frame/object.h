// The identifier word at the head of every object, and the one place that compares it.
#pragma once

#include <moxsp/types.h>

namespace mox {

// A word of four characters, the first in the highest byte: objectWord("FI", 1) is "FI01".
constexpr Mox32s objectWord(const char (&family)[3], int number) {
  return Mox32s(family[0] << 24 | family[1] << 16 | ('0' + number / 10) << 8 | ('0' + number % 10));
}

template <class Object, class... Id>
bool isOneOf(const Object* object, Id... ids) {
  return ((object->id == ids) || ...);
}

// moxErrContext unless the object carries one of the identifiers.
template <class Object, class... Id>
MoxStatus requireId(const Object* object, Id... ids) {
  return isOneOf(object, ids...) ? moxOk : MoxStatus(moxErrContext);
}

}  // namespace mox
