// The life of a transform's record, for all kinds of floats. A Kind has
//   Float, id, maxOrder, maxSmallOrder   (up to there kernels need no tables)
//   sizes(order) -> FftSizes             (of orders above maxSmallOrder)
//   buildTables(spec, order, sine, next) (likewise; sets bufSize too)
#pragma once

#include <cmath>
#include <cstring>

#include "frame/arena.h"
#include "frame/checks.h"
#include "frame/object.h"
#include "support/moxcore.h"
#include "transforms/fft_tables.h"

namespace mox {

// Bytes, without slack: of the tables behind the record, and of the work buffer.
struct FftSizes {
  long tables, work;
};

constexpr int fftRecordSlack = 192;  // the record, rounded up, and the alignment of the block

// Whether each direction multiplies by the factor, from the caller's flag.
struct FftNorm {
  bool known, fwd, inv;
};
constexpr FftNorm fftNorm(int flag) {
  return {flag == 1 || flag == 2 || flag == 4 || flag == 8, flag == 1 || flag == 4,
          flag == 2 || flag == 4};
}

template <class F>
F fftNormFactor(int flag, int order) {
  const long n = 1L << order;
  return flag == 4 ? F(1 / std::sqrt(double(n))) : flag == 8 ? F(0) : F(1) / F(n);
}

template <class Kind>
constexpr bool fftOrderIsGood(int order) {
  return unsigned(order) <= unsigned(Kind::maxOrder);
}

template <class Kind>
MoxStatus fftGetSize(int order, int flag, int /*hint*/, int* specSize, int* initSize,
                     int* workSize) {
  using F = typename Kind::Float;
  if (unsigned(order) > 30) return moxErrFftOrder;
  if (anyNull(specSize, initSize, workSize)) return moxErrNullPtr;
  if (!fftNorm(flag).known) return moxErrFftFlag;
  if (!fftOrderIsGood<Kind>(order)) return moxErrFftOrder;
  if (order <= Kind::maxSmallOrder) {
    *specSize = int(sizeof(FftSpec<F>)) + fftAlignment;
    *initSize = *workSize = 0;
    return moxOk;
  }
  const FftSizes sizes = Kind::sizes(order);
  *specSize = int(sizes.tables + fftRecordSlack);
  *initSize = fftInitSize<F>(order);
  *workSize = sizes.work > 0 ? int(sizes.work) + fftAlignment : 0;
  return moxOk;
}

template <class Kind>
MoxStatus fftInit(MoxsFFTSpec** spec, int order, int flag, int hint, Mox8u* specMem,
                  Mox8u* initBuf) {
  using F = typename Kind::Float;
  if (!spec) return moxErrNullPtr;
  if (!fftOrderIsGood<Kind>(order)) return moxErrFftOrder;
  if (!specMem) return moxErrNullPtr;
  auto* record = reinterpret_cast<FftSpec<F>*>(alignUp(specMem, fftAlignment));
  std::memset(static_cast<void*>(record), 0, sizeof *record);
  const FftNorm norm = fftNorm(flag);
  if (!norm.known) return moxErrFftFlag;
  record->order = order;
  record->fwdNorm = norm.fwd;
  record->invNorm = norm.inv;
  record->normFactor = fftNormFactor<F>(flag, order);
  record->hint = hint;
  if (order > Kind::maxSmallOrder) {
    const bool ownSine = order > fftConstantSineOrder;
    if (ownSine && !initBuf) return moxErrNullPtr;
    const QuarterSine<F> sine =
        ownSine ? ownFftSinTable<F>(order, initBuf) : ownFftConstantSine<F>();
    Kind::buildTables(*record, order, sine,
                      alignUp(reinterpret_cast<Mox8u*>(record + 1), fftAlignment));
  }
  record->id = Kind::id;  // at the end: no record that failed passes for one
  *spec = record;
  return moxOk;
}

template <class Kind>
MoxStatus fftInitAlloc(MoxsFFTSpec** spec, int order, int flag, int hint) {
  if (!spec) return moxErrNullPtr;
  int specSize, initSize, workSize;
  if (MoxStatus s = fftGetSize<Kind>(order, flag, hint, &specSize, &initSize, &workSize)) return s;
  auto* specMem = static_cast<Mox8u*>(moxMalloc(specSize));
  if (!specMem) return moxErrMemAlloc;
  Mox8u* initBuf = nullptr;
  if (initSize > 0 && !(initBuf = static_cast<Mox8u*>(moxMalloc(initSize)))) {
    moxFree(specMem);
    return moxErrMemAlloc;
  }
  const MoxStatus status = fftInit<Kind>(spec, order, flag, hint, specMem, initBuf);
  if (initBuf) moxFree(initBuf);
  if (status != moxOk) {
    moxFree(specMem);
    return status;
  }
  auto* record = static_cast<FftSpec<typename Kind::Float>*>(*spec);
  record->allocated = 1;
  record->specMem = specMem;
  return moxOk;
}

template <class Kind>
MoxStatus fftFree(MoxsFFTSpec* spec) {
  if (!spec) return moxErrNullPtr;
  if (MoxStatus s = requireId(spec, Kind::id)) return s;
  auto* record = static_cast<FftSpec<typename Kind::Float>*>(spec);
  record->id = 0;
  if (record->allocated == 1) moxFree(record->specMem);
  return moxOk;
}

template <class Kind>
MoxStatus fftGetBufSize(const MoxsFFTSpec* spec, int* size) {
  if (anyNull(spec, size)) return moxErrNullPtr;
  if (MoxStatus s = requireId(spec, Kind::id)) return s;
  const int bytes = static_cast<const FftSpec<typename Kind::Float>*>(spec)->bufSize;
  *size = bytes > 0 ? bytes + fftAlignment : 0;
  return moxOk;
}

// The complex tables of a transform above the small orders.
template <class F>
constexpr FftSizes fftComplexSizes(int order) {
  if (order < FftLimits<F>::largeOrder) {
    const long data = 2 * long(sizeof(F)) << order;
    return {fftRoundUp(data + 2 * long(sizeof(F))) + fftRoundUp((1L << order) + long(sizeof(int))),
            fftRoundUp(data)};
  }
  const FftLargeSizes sizes = ownFftLargeSizes<F>(order);
  return {sizes.tables, sizes.work};
}

// A complex transform as a kind of object.
template <class F, FftKind kind>
struct ComplexKind {
  using Float = F;
  static constexpr FftKind id = kind;
  static constexpr int maxOrder = FftLimits<F>::maxComplexOrder;
  static constexpr int maxSmallOrder = fftMaxSmallOrder;

  static constexpr FftSizes sizes(int order) { return fftComplexSizes<F>(order); }
  static void buildTables(FftSpec<F>& spec, int order, QuarterSine<F> sine, Mox8u* next) {
    fftBuildComplexTables(spec, order, sine, next);
  }
};

}  // namespace mox
