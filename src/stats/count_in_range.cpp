// Elements between two bounds.
#include <moxsp/measures.h>

#include "frame/export.h"
#include "frame/vec/vec.h"

namespace mox::stats {
namespace {

MoxStatus countInRange(const Mox32s* src, int len, int* counts, Mox32s lowerBound,
                       Mox32s upperBound) {
  if (MoxStatus s = checkArrays(len, src, counts)) return s;
  using T = I<Mox32s>;
  constexpr int vecs = 4, block = vecs * laneCount<T>;
  T found[vecs] = {};  // minus the numbers found
  long i = 0;
  for (; i <= len - block; i += block)
    for (int j = 0; j < vecs; ++j) {
      const T x = load<T>(src + i + j * laneCount<T>);
      found[j] += (x > lowerBound) & (x < upperBound);
    }
  const T all = found[0] + found[1] + found[2] + found[3];
  int count = -(all[0] + all[1] + all[2] + all[3]);
  for (; i < len; ++i) {
    const Mox32s x = load<Mox32s>(src + i);
    count += x > lowerBound && x < upperBound;
  }
  store(counts, count);
  return moxOk;
}

}  // namespace

MOX_EXPORT(moxsCountInRange_32s, countInRange);

}  // namespace mox::stats
