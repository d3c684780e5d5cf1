// Standard deviations, by the sum of the elements and the sum of their squares.
#include <moxsp/reductions.h>

#include <cmath>

#include "frame/export.h"
#include "stats/integer_sums.h"
#include "stats/scaled_result.h"
#include "stats/sum.h"

namespace mox::stats {
namespace {

constexpr Order accurateMoments = {.lanes = 16, .tail = Tail::halves};
constexpr Order doubleMoments = {.lanes = 4, .tail = Tail::halves};

template <class F>
struct Moments {
  F n, sum, squares;

  F mean() const { return sum / n; }
  F spread() const { return squares * n - sum * sum; }
  F pairs() const { return n * (n - 1); }
};

template <Order order, class F, class E>
Moments<Mox64f> momentsInOrder(const E* src, long len, long peel) {
  const auto terms = [src]<class T>(std::type_identity<T>, long i) {
    const T x = numberAt<T>(src + i);
    return std::array{x, x * x};
  };
  const auto sums = fold<order, F>(ofSources(terms, src), len, peel);
  return {Mox64f(len), sums.of[0][0], sums.of[1][0]};
}

Moments<Mox64f> momentsOf(const Mox32f* src, long len, int hint) {
  if (hint == fastHint && isAligned(src, sizeof(Mox32f)))
    return momentsInOrder<fastSum, Mox32f>(src, len, peelCount<orderBytes>(src));
  return momentsInOrder<accurateMoments, Mox64f>(src, len, peelCount<16>(src));
}

Moments<Mox64f> momentsOf(const Mox64f* src, long len) {
  return momentsInOrder<doubleMoments, Mox64f>(src, len, long(addressOf(src) >> 3 & 1));
}

Moments<Mox64f> momentsOf(const Mox16s* src, long len) {
  const auto sums = exactMoments(src, len);
  return {Mox64f(len), Mox64f(sums[0]), Mox64f(sums[1])};
}

// In the 80-bit format, with two partial sums that take the elements in turn. Its squares of
// floats are exact.
Moments<long double> extendedMomentsOf(const Mox32f* src, long len) {
  using Extended = long double;
  Extended sum[2] = {}, squares[2] = {};
  const auto add = [&](int lane, long i) {
    const Extended x = load<Mox32f>(src + i);
    sum[lane] += x;
    squares[lane] += x * x;
  };
  long i = 0;
  for (; i <= len - 4; i += 4) {
    add(0, i);
    add(1, i + 1);
    add(0, i + 2);
    add(1, i + 3);
  }
  sum[0] += sum[1];
  squares[0] += squares[1];
  for (; i < len; ++i) add(0, i);
  return {Extended(len), sum[0], squares[0]};
}

// A spread below 0 is rounding, and NaN counts as one too.
Mox64f stdDevOf(const Moments<Mox64f>& m) {
  return squareRoot(greater(m.spread(), 0.0) / m.pairs());
}

template <class... D>
MoxStatus checkDeviation(int len, const D*... arrays) {
  if (anyNull(arrays...)) return moxErrNullPtr;
  return checkLength(len, 2);
}

MoxStatus stdDev32f(const Mox32f* src, int len, Mox32f* stdDev, int hint) {
  if (MoxStatus s = checkDeviation(len, src, stdDev)) return s;
  store(stdDev, Mox32f(stdDevOf(momentsOf(src, len, hint))));
  return moxOk;
}

MoxStatus stdDev64f(const Mox64f* src, int len, Mox64f* stdDev) {
  if (MoxStatus s = checkDeviation(len, src, stdDev)) return s;
  store(stdDev, stdDevOf(momentsOf(src, len)));
  return moxOk;
}

template <class D>
MoxStatus stdDev16s(const Mox16s* src, int len, D* stdDev, int scaleFactor) {
  if (MoxStatus s = checkDeviation(len, src, stdDev)) return s;
  const HiddenExceptions scope;
  store(stdDev, saturatedInteger<D>(stdDevOf(momentsOf(src, len)) * scaleMultiplier(scaleFactor)));
  return moxOk;
}

// The hint is ignored.
MoxStatus meanStdDev32f(const Mox32f* src, int len, Mox32f* mean, Mox32f* stdDev, int /*hint*/) {
  if (MoxStatus s = checkDeviation(len, src, mean, stdDev)) return s;
  const auto m = extendedMomentsOf(src, len);
  const long double variance = m.spread() / m.pairs();
  store(mean, Mox32f(m.mean()));
  store(stdDev, Mox64f(variance) < 0 ? Mox32f(0) : Mox32f(std::sqrt(variance)));
  return moxOk;
}

MoxStatus meanStdDev64f(const Mox64f* src, int len, Mox64f* mean, Mox64f* stdDev) {
  if (MoxStatus s = checkDeviation(len, src, mean, stdDev)) return s;
  const auto m = momentsOf(src, len);
  store(mean, m.mean());
  store(stdDev, stdDevOf(m));
  return moxOk;
}

template <class D>
MoxStatus meanStdDev16s(const Mox16s* src, int len, D* mean, D* stdDev, int scaleFactor) {
  if (MoxStatus s = checkDeviation(len, src, mean, stdDev)) return s;
  const HiddenExceptions scope;
  const auto m = momentsOf(src, len);
  store(mean, saturatedInteger<D>(scaled<Mox16s>(m.mean(), scaleFactor)));
  store(stdDev, saturatedInteger<D>(stdDevOf(m) * scaleMultiplier(scaleFactor)));
  return moxOk;
}

}  // namespace

MOX_EXPORT(moxsStdDev_32f, stdDev32f);
MOX_EXPORT(moxsStdDev_64f, stdDev64f);
MOX_EXPORT(moxsStdDev_16s_Sfs, stdDev16s);
MOX_EXPORT(moxsStdDev_16s32s_Sfs, stdDev16s);

MOX_EXPORT(moxsMeanStdDev_32f, meanStdDev32f);
MOX_EXPORT(moxsMeanStdDev_64f, meanStdDev64f);
MOX_EXPORT(moxsMeanStdDev_16s_Sfs, meanStdDev16s);
MOX_EXPORT(moxsMeanStdDev_16s32s_Sfs, meanStdDev16s);

}  // namespace mox::stats
