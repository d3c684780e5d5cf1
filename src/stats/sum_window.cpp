// Sums over a window that slides along a vector.
#include <moxsp/measures.h>

#include "frame/export.h"
#include "frame/vec/vec.h"

namespace mox::stats {
namespace {

template <class E>
MoxStatus sumWindow(const E* src, Mox32f* dst, int len, int maskSize) {
  if (MoxStatus s = checkArrays(len, src, dst)) return s;
  if (maskSize < 1) return moxErrSumWindowLen;
  const auto element = [=](long i) { return int(load<E>(src + i)); };
  Mox64s first = 0;
  for (long i = 0; i < maskSize; ++i) first += element(i);
  Mox32f sum = Mox32f(first);
  store(dst, sum);
  for (long i = 1; i < len; ++i) {
    sum += Mox32f(element(i + maskSize - 1) - element(i - 1));
    store(dst + i, sum);
  }
  return moxOk;
}

}  // namespace

MOX_EXPORT(moxsSumWindow_8u32f, sumWindow);
MOX_EXPORT(moxsSumWindow_16s32f, sumWindow);

}  // namespace mox::stats
