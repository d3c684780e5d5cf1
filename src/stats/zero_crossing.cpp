// Zero crossings of a signal.
#include <moxsp/measures.h>

#include <algorithm>
#include <bit>

#include "frame/elements.h"
#include "frame/export.h"
#include "frame/vec/vec.h"

namespace mox::stats {
namespace {

using Floats = Register<Mox32f>;
using Words = Register<Mox16s>;

int lanesWhere(auto mask) { return std::popcount(signBits(mask)); }

struct NegativeProducts {
  int operator()(Floats a, Floats b) const { return lanesWhere(a * b < 0); }
  int operator()(Words a, Words b) const { return lanesWhere((a ^ b) & (a != 0) & (b != 0)); }
};
struct DifferentSignBits {
  int operator()(Floats a, Floats b) const { return lanesWhere(Bits<Floats>(a) ^ Bits<Floats>(b)); }
  int operator()(Words a, Words b) const { return lanesWhere(a ^ b); }
};
struct SignDistances {
  int operator()(auto a, auto b) const {
    return lanesWhere((a > 0) ^ (b > 0)) + lanesWhere((a < 0) ^ (b < 0));
  }
};

// The sum of count(x[i - 1], x[i]) over all lanes. Past the end stands the last element, which
// makes no crossing with itself.
template <class E>
Mox64s sumOverPairs(auto count, const E* src, long len) {
  using Lanes = Register<E>;
  constexpr int lanes = laneCount<Lanes>;
  const auto at = [=](const E* from) { return count(load<Lanes>(from), load<Lanes>(from + 1)); };
  Mox64s sum = 0;
  long i = 1;
  for (; i <= len - lanes; i += lanes) sum += at(src + i - 1);
  if (i >= len) return sum;
  E rest[lanes + 1];
  for (long j = 0; j <= lanes; ++j) rest[j] = load<E>(src + std::min(i - 1 + j, len - 1));
  return sum + at(rest);
}

template <class E>
MoxStatus zeroCrossing(const E* src, int len, Mox32f* result, int zcType) {
  if (anyNull(src, result)) return moxErrNullPtr;
  if (len == 0) return moxErrSize;
  switch (zcType) {
    case moxZeroCrossingProduct:
      store(result, Mox32f(sumOverPairs(NegativeProducts(), src, len)));
      return moxOk;
    case moxZeroCrossingXor:
      store(result, Mox32f(sumOverPairs(DifferentSignBits(), src, len)));
      return moxOk;
    case moxZeroCrossingSign:
      store(result, 0.5f * Mox32f(sumOverPairs(SignDistances(), src, len)));
      return moxOk;
  }
  return moxErrZeroCrossingType;
}

}  // namespace

MOX_EXPORT(moxsZeroCrossing_32f, zeroCrossing);
MOX_EXPORT(moxsZeroCrossing_16s32f, zeroCrossing);

}  // namespace mox::stats
