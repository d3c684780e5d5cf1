// First-order pre-emphasis in place, from the end, so that elements find those before them as they
// were.
#include <moxsp/channel.h>

#include "frame/control_word.h"
#include "frame/export.h"
#include "frame/map_scaled.h"

namespace mox::channel {
namespace {

// vector(i) makes `lanes` elements from i on, one(i) a single one.
template <long lanes, class Vector, class One>
void backward(long len, Vector vector, One one) {
  long end = len;
  for (; end > lanes; end -= lanes) vector(end - lanes);
  while (end > 1) one(--end);
}

MoxStatus preemphasize32f(Mox32f* srcDst, int len, Mox32f val) {
  if (MoxStatus s = checkArrays(len, srcDst)) return s;
  const auto at = [=]<class T>(T factor, long i) {
    store(srcDst + i, load<T>(srcDst + i) - factor * load<T>(srcDst + i - 1));
  };
  backward<lanesOf<Mox32f>>(
      len, [=](long i) { at(broadcast<V<Mox32f>>(val), i); }, [=](long i) { at(val, i); });
  return moxOk;
}

// In doubles, where products are exact.
MoxStatus preemphasize16s(Mox16s* srcDst, int len, Mox32f val) {
  if (MoxStatus s = checkArrays(len, srcDst)) return s;
  const HiddenExceptions scope;
  using Lanes = V<Mox64f>;
  const auto rounded = [factor = broadcast<Lanes>(Mox64f(val))](Lanes x, Lanes before) {
    return saturate<Mox16s>(nearestInteger(x - factor * before));
  };
  const auto half = [=](const Mox16s* x) {
    return rounded(loadWidened<Lanes>(x), loadWidened<Lanes>(x - 1));
  };
  backward<2 * laneCount<Lanes>>(
      len,
      [=](long i) {
        Mox16s* const x = srcDst + i;
        store(x, packInOrder<Mox16s>(half(x), half(x + laneCount<Lanes>)));
      },
      [=](long i) {
        const auto x = load<Mox16s>(srcDst + i), before = load<Mox16s>(srcDst + i - 1);
        store(srcDst + i, Mox16s(rounded(Lanes{Mox64f(x)}, Lanes{Mox64f(before)})[0]));
      });
  return moxOk;
}

}  // namespace

MOX_EXPORT(moxsPreemphasize_32f, preemphasize32f);
MOX_EXPORT(moxsPreemphasize_16s, preemphasize16s);

}  // namespace mox::channel
