// Cross-correlation. Lags at which the signals don't overlap are cut off first.
#include <moxsp/corr.h>

#include <cmath>

#include "convert/conj.h"
#include "corr/corr_selector.h"
#include "corr/float_signal.h"
#include "frame/control_word.h"
#include "move/flip.h"
#include "stats/integer_sums.h"

namespace mox::corr {
namespace {

// Lengths of an FFT rule above which it runs.
template <class E>
constexpr float mostForDirect = sizeof(Part<E>) == 8 ? 511
                                : Complex<E>         ? 255
                                                     : 383;

struct Lags {
  long len1, len2;
  long before;      // outputs before the lags at which the signals overlap
  long low, count;  // those lags

  Lags(long n1, long n2, long outputs, long lowLag)
      : len1(n1),
        len2(n2),
        before(std::clamp(1 - n1 - lowLag, 0L, outputs)),
        low(lowLag + before),
        count(std::clamp(n2 - low, 0L, outputs - before)) {}

  long shorter() const { return std::min(len1, len2); }
  // Of the lags of all outputs that are not zero.
  long firstOfAll() const { return low + len1 - 1; }

  template <class E>
  bool takeFft(Method method) const {
    if (count == 0) return false;
    if (method != Method::automatic) return method == Method::fft;
    const float longer = float(std::max(len1, len2));
    return std::trunc(float(shorter()) * float(count) / longer) > mostForDirect<E>;
  }
  FftPlan plan() const { return fftPlan(len1, len2, 1, firstOfAll() <= shorter()); }
};

template <class E>
MoxStatus correlateByFft(const E* src1, const E* src2, E* dst, const Lags& lags, Mox8u* buffer) {
  const FftPlan plan = lags.plan();
  const long count = lags.count;
  return inFftBuffer<E>(plan.order, sumArrays, buffer, [&](Arena arena) {
    if (lags.len1 <= lags.len2)
      sumByFft<E>({Kind::correlation, src1, lags.len1, src2, lags.len2, lags.low}, plan, arena,
                  count,
                  [=](const E* results, long i, long n) { convert::takeIn(results, dst + i, n); });
    else  // the conjugates of what src2 and src1 give at the opposite lags
      sumByFft<E>({Kind::correlation, src2, lags.len2, src1, lags.len1, 1 - lags.low - count}, plan,
                  arena, count, [=](const E* results, long i, long n) {
                    move::reverseCopy(results, dst + count - i - n, n, convert::Conjugate<E>());
                  });
  });
}

template <class E>
MoxStatus correlateBy(Method method, const E* src1, const E* src2, E* dst, long dstLen,
                      const Lags& lags, Mox8u* buffer = nullptr) {
  E* const kept = dst + lags.before;
  if (!lags.takeFft<E>(method))
    sumDirectly<E>({Kind::correlation, src1, lags.len1, src2, lags.len2, lags.low}, kept,
                   lags.count);
  else if (MoxStatus s = correlateByFft(src1, src2, kept, lags, buffer))
    return s;
  const auto zero = [=](long from, long to) {
    std::memset(static_cast<void*>(dst + from), 0, std::size_t(to - from) * sizeof(E));
  };
  zero(0, lags.before);
  zero(lags.before + lags.count, dstLen);
  return moxOk;
}

// The terms of outputs rise from 1 to the shorter length, stay there and fall.
template <class E>
void normalize(Normalization kind, E* dst, const Lags& lags) {
  const long most = lags.shorter(), first = lags.firstOfAll(), all = lags.len1 + lags.len2 - 1;
  const Part<E> factor = 1 / Part<E>(most);
  if (kind == Normalization::byLength) multiplyBy(factor, dst, lags.count);
  if (kind != Normalization::byTerms) return;
  const long flat = std::clamp(most - 1 - first, 0L, lags.count),
             falling = std::clamp(all + 1 - most - first, flat, lags.count);
  divideByRamp(first + 1, 1, dst, flat);
  multiplyBy(factor, dst + flat, falling - flat);
  divideByRamp(all - first - falling, -1, dst + falling, lags.count - falling);
}

template <class... P>
MoxStatus check(int len1, int len2, int dstLen, const P*... pointers) {
  return checkArrays(std::min({len1, len2, dstLen}), pointers...);
}

template <class E>
MoxStatus crossCorr(const E* src1, int len1, const E* src2, int len2, E* dst, int dstLen,
                    int lowLag) {
  if (MoxStatus s = check(len1, len2, dstLen, src1, src2, dst)) return s;
  return correlateBy(Method::automatic, src1, src2, dst, dstLen, Lags(len1, len2, dstLen, lowLag));
}

MoxStatus crossCorrScaled(const Mox16s* src1, int len1, const Mox16s* src2, int len2, Mox16s* dst,
                          int dstLen, int lowLag, int scaleFactor) {
  if (MoxStatus s = check(len1, len2, dstLen, src1, src2, dst)) return s;
  const HiddenExceptions scope;
  const FloatSignal a(src1, len1), b(src2, len2), sums(dstLen);
  if (a.failed() || b.failed() || sums.failed()) return moxErrMemAlloc;
  if (MoxStatus s = crossCorr(a.samples(), len1, b.samples(), len2, sums.samples(), dstLen, lowLag))
    return s;
  sums.giveOut(dst, scaleFactor);
  return moxOk;
}

MoxStatus crossCorrExact(const Mox16s* src1, int len1, const Mox16s* src2, int len2, Mox64s* dst,
                         int dstLen, int lowLag) {
  if (MoxStatus s = check(len1, len2, dstLen, src1, src2, dst)) return s;
  for (long i = 0; i < dstLen; ++i) {
    const long lag = lowLag + i, from = std::max(-lag, 0L), to = std::min(len2 - lag, long(len1));
    store(dst + i, from < to ? stats::exactDot(src1 + from, src2 + from + lag, to - from)[0] : 0);
  }
  return moxOk;
}

// A null buffer serves where none is needed.
template <class E>
MoxStatus crossCorrNorm(const E* src1, int len1, const E* src2, int len2, E* dst, int dstLen,
                        int lowLag, int algType, Mox8u* buffer) {
  if (MoxStatus s = check(len1, len2, dstLen, src1, src2, dst)) return s;
  const Selector selector(algType);
  if (!selector.hasMethod()) return moxErrAlgType;
  const Lags lags(len1, len2, dstLen, lowLag);
  if (lags.takeFft<E>(selector.method()) && anyNull(buffer)) return moxErrNullPtr;
  if (MoxStatus s = correlateBy(selector.method(), src1, src2, dst, dstLen, lags, buffer)) return s;
  if (!selector.hasNormalization()) return moxErrAlgType;
  normalize(selector.normalization(), dst + lags.before, lags);
  return moxOk;
}

MoxStatus crossCorrNormGetBufferSize(int len1, int len2, int dstLen, int lowLag, int dataType,
                                     int algType, int* bufferSize) {
  if (MoxStatus s = check(len1, len2, dstLen, bufferSize)) return s;
  const HiddenExceptions scope;
  const Lags lags(len1, len2, dstLen, lowLag);
  return reportSizeBy(algType, dataType, bufferSize, [&]<class E>(Method method, E) {
    return lags.takeFft<E>(method) ? fftFigure<E>(lags.plan().order, sumArrays) : 0;
  });
}

}  // namespace

MOX_EXPORT(moxsCrossCorr_32f, crossCorr);
MOX_EXPORT(moxsCrossCorr_32fc, crossCorr);
MOX_EXPORT(moxsCrossCorr_64f, crossCorr);
MOX_EXPORT(moxsCrossCorr_64fc, crossCorr);
MOX_EXPORT(moxsCrossCorr_16s_Sfs, crossCorrScaled);
MOX_EXPORT(moxsCrossCorr_16s64s, crossCorrExact);
MOX_EXPORT(moxsCrossCorrNorm_32f, crossCorrNorm);
MOX_EXPORT(moxsCrossCorrNorm_32fc, crossCorrNorm);
MOX_EXPORT(moxsCrossCorrNorm_64f, crossCorrNorm);
MOX_EXPORT(moxsCrossCorrNorm_64fc, crossCorrNorm);
MOX_EXPORT(moxsCrossCorrNormGetBufferSize, crossCorrNormGetBufferSize);

}  // namespace mox::corr
