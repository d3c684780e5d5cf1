// Function bodies in the shapes that the element-wise families share, each made of an operation on
// scalars and vectors. Bodies with a constant see it as a source like any other.
#pragma once

#include "frame/checks.h"
#include "frame/map.h"
#include "move/copy.h"
#include "move/fill.h"

namespace mox::arith {

// dst = op(src1, src2)
template <auto op, class A, class B = A, class D = A>
MoxStatus mapPair(const A* src1, const B* src2, D* dst, int len) {
  if (MoxStatus s = checkArrays(len, src1, src2, dst)) return s;
  mapElements<Stores::bypassing>(op, dst, len, src1, src2);
  return moxOk;
}

// The same for operations that treat the parts of a complex element alike. The length is looked at
// before the pointers.
template <auto op, Complex E>
MoxStatus mapParts(const E* src1, const E* src2, E* dst, int len) {
  if (MoxStatus s = checkLength(len)) return s;
  if (MoxStatus s = checkArrays(len, src1, src2, dst)) return s;
  mapElements<Stores::bypassing>(op, parts(dst), 2L * len, parts(src1), parts(src2));
  return moxOk;
}

// dst = op(src, val)
template <auto op, class E>
MoxStatus mapConstant(const E* src, E val, E* dst, int len) {
  if (MoxStatus s = checkArrays(len, src, dst)) return s;
  mapElements<Stores::bypassing>(op, dst, len, src, Same<E>{val});
  return moxOk;
}

// The same where 0 stands for no operation at all: each value stays to the bit, -0 and signalling
// NaN too.
template <auto op, class E>
MoxStatus mapUnlessZero(const E* src, E val, E* dst, int len) {
  if (val != 0) return mapConstant<op>(src, val, dst, len);
  if (MoxStatus s = checkArrays(len, src, dst)) return s;
  if (src != dst) move::copyElements(src, dst, len);
  return moxOk;
}

}  // namespace mox::arith
