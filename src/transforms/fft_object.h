// The kinds of transform objects on floats, and their life.
#pragma once

#include <cmath>

#include "frame/lifecycle.h"
#include "frame/vec/vec.h"
#include "frame/work_buffer.h"
#include "transforms/fft_figures.h"
#include "transforms/fft_tables.h"

namespace mox::transforms {

// What all kinds on data of type F have in common.
template <class F>
struct FloatKind {
  using Float = F;
  using Head = MoxsFFTSpec;
  using Record = FftSpec<F>;
  static constexpr int alignment = fftAlignment;
  static constexpr bool releaseClearsId = true;
};

template <class F, FftKind kind>
struct ComplexKind : FloatKind<F> {
  static constexpr FftKind id = kind;
  static constexpr int maxOrder = FftLimits<F>::maxComplexOrder;
  static constexpr int maxSmallOrder = fftLastBareOrder;

  struct Shape {
    int order;
    constexpr void layout(Arena& arena, FftSpec<F>& spec) const {
      if (order > maxSmallOrder) placeComplexTables(arena, spec, order);
    }
  };

  // Of orders above the small ones.
  static constexpr long tablesFigure(int order) { return complexTablesFigure<F>(order); }
  static constexpr long workBytes(int order) { return complexWorkBytes<F>(order); }
  static void fill(FftSpec<F>& spec, int order, QuarterSine<F> sine) {
    fillComplexTables(spec, order, sine);
  }
};

// The complex transform of half the length, and what joins its spectrum and the real one.
template <class F>
struct RealKind : FloatKind<F> {
  static constexpr FftKind id = sizeof(F) == 4 ? fftReal32f : fftReal64f;
  static constexpr int maxOrder = FftLimits<F>::maxComplexOrder + 1;
  static constexpr int maxSmallOrder = fftMaxSmallRealOrder;

  static constexpr bool hasComplexTables(int order) { return order - 1 > fftLastBareOrder; }

  struct Shape {
    int order;
    constexpr void layout(Arena& arena, FftSpec<F>& spec) const {
      if (hasComplexTables(order)) placeComplexTables(arena, spec, order - 1);
      if (order > maxSmallOrder) placeRealTables(arena, spec, order);
    }
  };

  static constexpr long tablesFigure(int order) {
    return (hasComplexTables(order) ? complexTablesFigure<F>(order - 1) : 0) +
           realTablesFigure<F>(order);
  }
  static constexpr long workBytes(int order) {
    return hasComplexTables(order) ? complexWorkBytes<F>(order - 1) : 0;
  }
  static void fill(FftSpec<F>& spec, int order, QuarterSine<F> sine) {
    if (hasComplexTables(order)) fillComplexTables(spec, order - 1, sine);
    fillRealTables(spec, order, sine);
  }
};

template <class K>
concept FftObject = ObjectKind<K> &&
    requires(typename K::Record& spec, int order, QuarterSine<typename K::Float> sine) {
  K::id;
  K::maxOrder;
  K::maxSmallOrder;  // up to there records have no tables
  { K::tablesFigure(order) } -> std::same_as<long>;
  { K::workBytes(order) } -> std::same_as<long>;
  K::fill(spec, order, sine);
};

// Whether each direction multiplies by the factor, from the caller's flag.
struct FftNorm {
  bool known, fwd, inv;
};
constexpr FftNorm fftNorm(int flag) {
  return {flag == 1 || flag == 2 || flag == 4 || flag == 8, flag == 1 || flag == 4,
          flag == 2 || flag == 4};
}

template <class F>
F fftNormFactor(int flag, long n) {
  return flag == 4 ? F(1 / std::sqrt(double(n))) : flag == 8 ? F(0) : F(1) / F(n);
}

// The contents of a record that has its tables; `initBuf` has fftInitSize() bytes.
template <FftObject Kind>
void fillSpec(typename Kind::Record& spec, int order, int flag, int hint, Mox8u* initBuf) {
  using F = typename Kind::Float;
  const FftNorm norm = fftNorm(flag);
  spec.order = order;
  spec.fwdNorm = norm.fwd;
  spec.invNorm = norm.inv;
  spec.normFactor = fftNormFactor<F>(flag, 1L << order);
  spec.hint = hint;
  if (order <= Kind::maxSmallOrder) return;
  spec.bufSize = Mox32s(Kind::workBytes(order));
  Kind::fill(spec, order, quarterSine<F>(order, initBuf));
}

template <FftObject Kind>
constexpr bool orderIsGood(int order) {
  return unsigned(order) <= unsigned(Kind::maxOrder);
}

// A record and its tables, at any address.
template <FftObject Kind>
constexpr long specFigure(int order) {
  return order <= Kind::maxSmallOrder ? fftRecordFigure<typename Kind::Float>
                                      : Kind::tablesFigure(order) + fftTablesSlack;
}

// Whether the figure bounds what objects take, at all orders.
template <FftObject Kind>
constexpr bool figuresSuffice() {
  for (int order = 0; order <= Kind::maxOrder; ++order)
    if (objectBytes<Kind>({order}) > std::size_t(specFigure<Kind>(order))) return false;
  return true;
}

// A work buffer's bytes with the slack for any address.
constexpr int bufferFigure(long bytes) { return bytes > 0 ? int(bytes) + fftAlignment : 0; }

// What the size query reports of an order.
struct FftSizes {
  int spec, init, work;
};
template <FftObject Kind>
constexpr FftSizes fftSizes(int order) {
  if (order <= Kind::maxSmallOrder) return {int(specFigure<Kind>(order)), 0, 0};
  return {int(specFigure<Kind>(order)), fftInitSize<typename Kind::Float>(order),
          bufferFigure(Kind::workBytes(order))};
}

template <FftObject Kind>
MoxStatus getSize(int order, int flag, int /*hint*/, int* specSize, int* initSize, int* workSize) {
  if (unsigned(order) > 30) return moxErrFftOrder;
  if (anyNull(specSize, initSize, workSize)) return moxErrNullPtr;
  if (!fftNorm(flag).known) return moxErrFftFlag;
  if (!orderIsGood<Kind>(order)) return moxErrFftOrder;
  const FftSizes sizes = fftSizes<Kind>(order);
  store(specSize, sizes.spec);
  store(initSize, sizes.init);
  store(workSize, sizes.work);
  return moxOk;
}

template <FftObject Kind>
MoxStatus init(MoxsFFTSpec** spec, int order, int flag, int hint, Mox8u* specMem, Mox8u* initBuf) {
  if (anyNull(spec)) return moxErrNullPtr;
  if (!orderIsGood<Kind>(order)) return moxErrFftOrder;
  if (anyNull(specMem)) return moxErrNullPtr;
  return mox::init<Kind>(spec, Kind::id, {order}, specMem, [&](auto& record) -> MoxStatus {
    if (!fftNorm(flag).known) return moxErrFftFlag;
    if (fftInitSize<typename Kind::Float>(order) > 0 && anyNull(initBuf)) return moxErrNullPtr;
    fillSpec<Kind>(record, order, flag, hint, initBuf);
    return moxOk;
  });
}

template <FftObject Kind>
MoxStatus initAlloc(MoxsFFTSpec** spec, int order, int flag, int hint) {
  if (anyNull(spec)) return moxErrNullPtr;
  int specSize, initSize, workSize;
  if (MoxStatus s = getSize<Kind>(order, flag, hint, &specSize, &initSize, &workSize)) return s;
  return mox::initAlloc<Kind>(spec, Kind::id, {order}, [&](auto& record) -> MoxStatus {
    const WorkBuffer scratch(nullptr, initSize);
    if (scratch.failed()) return moxErrMemAlloc;
    fillSpec<Kind>(record, order, flag, hint, scratch.as<Mox8u>());
    return moxOk;
  });
}

template <FftObject Kind>
MoxStatus free(MoxsFFTSpec* spec) {
  return release<Kind>(spec, Kind::id);
}

template <FftObject Kind>
MoxStatus getBufSize(const MoxsFFTSpec* spec, int* size) {
  if (anyNull(spec, size)) return moxErrNullPtr;
  if (MoxStatus s = requireId(spec, Kind::id)) return s;
  store(size, bufferFigure(spec->bufSize));
  return moxOk;
}

}  // namespace mox::transforms
