#include <moxsp/arith.h>

#include "frame/checks.h"
#include "frame/elements.h"
#include "frame/export.h"
#include "frame/map.h"

namespace mox {
namespace {

template <class E>
MoxStatus add(const E* src1, const E* src2, E* dst, int len) {
  if (MoxStatus s = checkArrays(len, src1, src2, dst)) return s;
  mapElements([](auto a, auto b) { return a + b; }, dst, len, src1, src2);
  return moxOk;
}

// A complex sum is the real sum of the parts; its length is looked at before the pointers.
template <Complex E>
MoxStatus add(const E* src1, const E* src2, E* dst, int len) {
  if (MoxStatus s = checkLength(len)) return s;
  if (MoxStatus s = checkArrays(len, src1, src2, dst)) return s;
  mapElements([](auto a, auto b) { return a + b; }, parts(dst), 2L * len, parts(src1), parts(src2));
  return moxOk;
}

template <class E>
MoxStatus addInPlace(const E* src, E* srcDst, int len) {
  return add(src, srcDst, srcDst, len);
}

}  // namespace

MOX_EXPORT(moxsAdd_32f, add<Mox32f>);
MOX_EXPORT(moxsAdd_64f, add<Mox64f>);
MOX_EXPORT(moxsAdd_32fc, add<Mox32fc>);
MOX_EXPORT(moxsAdd_64fc, add<Mox64fc>);
MOX_EXPORT(moxsAdd_32f_I, addInPlace<Mox32f>);
MOX_EXPORT(moxsAdd_64f_I, addInPlace<Mox64f>);
MOX_EXPORT(moxsAdd_32fc_I, addInPlace<Mox32fc>);
MOX_EXPORT(moxsAdd_64fc_I, addInPlace<Mox64fc>);

}  // namespace mox
