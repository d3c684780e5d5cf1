// Zero crossings of a signal.
#include <moxsp/measures.h>

#include <algorithm>
#include <bit>

#include "frame/export.h"
#include "frame/map.h"

namespace mox::stats {
namespace {

using Lanes = V<Mox32f>;

int lanesWhere(auto mask) { return std::popcount(unsigned(signBits(Lanes(mask)))); }
int lanesWhere(auto a, auto b) { return lanesWhere(a ^ b); }

int negativeProducts(Lanes a, Lanes b) { return lanesWhere(a * b < 0); }
int differentSignBits(Lanes a, Lanes b) { return lanesWhere(Bits<Lanes>(a), Bits<Lanes>(b)); }
int signDistances(Lanes a, Lanes b) { return lanesWhere(a > 0, b > 0) + lanesWhere(a < 0, b < 0); }

// The sum of count(x[i - 1], x[i]) over all lanes. Past the end stands the last element, which
// makes no crossing with itself.
template <int (*count)(Lanes, Lanes), class E>
Mox64s sumOverPairs(const E* src, long len) {
  constexpr int lanes = laneCount<Lanes>;
  Mox64s sum = 0;
  long i = 1;
  for (; i <= len - lanes; i += lanes)
    sum += count(lanesFrom<Lanes>(src, i - 1), lanesFrom<Lanes>(src, i));
  if (i >= len) return sum;
  E rest[lanes + 1];
  for (long j = 0; j <= lanes; ++j) rest[j] = load<E>(src + std::min(i - 1 + j, len - 1));
  return sum + count(lanesFrom<Lanes>(rest, 0), lanesFrom<Lanes>(rest, 1));
}

template <class E>
MoxStatus zeroCrossing(const E* src, int len, Mox32f* result, int zcType) {
  if (anyNull(src, result)) return moxErrNullPtr;
  if (len == 0) return moxErrSize;
  switch (zcType) {
    case moxZeroCrossingProduct:
      store(result, Mox32f(sumOverPairs<negativeProducts>(src, len)));
      return moxOk;
    case moxZeroCrossingXor:
      store(result, Mox32f(sumOverPairs<differentSignBits>(src, len)));
      return moxOk;
    case moxZeroCrossingSign:
      store(result, 0.5f * Mox32f(sumOverPairs<signDistances>(src, len)));
      return moxOk;
  }
  return moxErrZeroCrossingType;
}

}  // namespace

MOX_EXPORT(moxsZeroCrossing_32f, zeroCrossing);
MOX_EXPORT(moxsZeroCrossing_16s32f, zeroCrossing);

}  // namespace mox::stats
