// Samples inserted and removed, without a filter. One body for each size of elements.
#include <moxsp/resampling.h>

#include <algorithm>
#include <climits>

#include "frame/export.h"
#include "frame/pair.h"
#include "move/copy.h"
#include "move/fill.h"

namespace mox::resample {
namespace {

template <class E>
MoxStatus checkSampling(const E* src, int srcLen, const E* dst, const int* dstLen, int factor,
                        const int* phase) {
  if (MoxStatus s = checkArrays(srcLen, src, dst, dstLen, phase)) return s;
  if (factor < 1) return moxErrSampleFactor;
  const int p = load<int>(phase);
  return p < 0 || p >= factor ? MoxStatus(moxErrSamplePhase) : moxOk;
}

// Samples and zeros in turn.
template <class E>
long interleaveZeros(const E* src, long len, E* dst, bool zeroFirst) {
  using T = V<E, 16 / sizeof(E)>;
  const T zero = {};
  long i = 0;
  for (; i <= len - laneCount<T>; i += laneCount<T>) {
    const T x = load<T>(src + i), first = zeroFirst ? zero : x, second = zeroFirst ? x : zero;
    store(dst + 2 * i, unpackLow<E>(first, second));
    store(dst + 2 * i + laneCount<T>, unpackHigh<E>(first, second));
  }
  return i;
}

template <class E>
MoxStatus sampleUp(const E* src, int srcLen, E* dst, int* dstLen, int factor, int* phase) {
  if (MoxStatus s = checkSampling(src, srcLen, dst, dstLen, factor, phase)) return s;
  const long len = long(srcLen) * factor, first = load<int>(phase);
  if (len > INT_MAX) return moxErrSize;
  store(dstLen, int(len));
  if (factor == 1) {
    move::copyElements(src, dst, len);
    return moxOk;
  }
  long i = 0;
  if constexpr (!Complex<E>)
    if (factor == 2) i = interleaveZeros(src, srcLen, dst, first == 1);
  // What is cleared is still in the cache when its samples come.
  const long sliceLen = std::max(1L, 16384 / long(sizeof(E)) / factor);
  while (i < srcLen) {
    const long end = std::min(i + sliceLen, long(srcLen));
    move::zeroElements(dst + i * factor, (end - i) * factor);
    for (; i < end; ++i) store(dst + first + i * factor, load<E>(src + i));
  }
  return moxOk;
}

// Every other sample.
template <class E>
long takeEven(const E* src, E* dst, long count, long readable) {
  using T = Register<E>;
  constexpr int lanes = laneCount<T>;
  long k = 0;
  for (; k <= count - lanes && 2 * (k + lanes) <= readable; k += lanes)
    store(dst + k, loadDeinterleaved<T>(src + 2 * k).re);
  return k;
}

template <class E>
MoxStatus sampleDown(const E* src, int srcLen, E* dst, int* dstLen, int factor, int* phase) {
  if (MoxStatus s = checkSampling(src, srcLen, dst, dstLen, factor, phase)) return s;
  const long first = load<int>(phase), left = std::max(0L, srcLen - first),
             count = (left + factor - 1) / factor;
  store(dstLen, int(count));
  store(phase, int(first + count * factor - srcLen));
  if (factor == 1) {
    move::moveBytes(src, dst, count * long(sizeof(E)));
    return moxOk;
  }
  long k = 0;
  if constexpr (!Complex<E>)
    if (factor == 2) k = takeEven(src + first, dst, count, left);
  for (; k < count; ++k) store(dst + k, load<E>(src + first + k * factor));
  return moxOk;
}

}  // namespace

MOX_EXPORT_SHARED(moxsSampleUp_16s, sampleUp<Mox16s>);
MOX_EXPORT_SHARED(moxsSampleUp_16sc, sampleUp<Mox32f>);
MOX_EXPORT_SHARED(moxsSampleUp_32f, sampleUp<Mox32f>);
MOX_EXPORT_SHARED(moxsSampleUp_32fc, sampleUp<Mox64f>);
MOX_EXPORT_SHARED(moxsSampleUp_64f, sampleUp<Mox64f>);
MOX_EXPORT_SHARED(moxsSampleUp_64fc, sampleUp<Mox64fc>);
MOX_EXPORT_SHARED(moxsSampleDown_16s, sampleDown<Mox16s>);
MOX_EXPORT_SHARED(moxsSampleDown_16sc, sampleDown<Mox32f>);
MOX_EXPORT_SHARED(moxsSampleDown_32f, sampleDown<Mox32f>);
MOX_EXPORT_SHARED(moxsSampleDown_32fc, sampleDown<Mox64f>);
MOX_EXPORT_SHARED(moxsSampleDown_64f, sampleDown<Mox64f>);
MOX_EXPORT_SHARED(moxsSampleDown_64fc, sampleDown<Mox64fc>);

}  // namespace mox::resample
