// The kinds of DFT objects on floats, and their life.
#pragma once

#include "frame/lifecycle.h"
#include "frame/work_buffer.h"
#include "transforms/dft_tables.h"
#include "transforms/transform_call.h"

namespace mox::transforms {

template <class F, DftKind kind, bool real>
struct DftFloatKind {
  using Float = F;
  using Head = MoxsDFTSpec;
  using Record = DftSpec<F>;
  using Shape = DftShape<F>;
  static constexpr bool isReal = real;
  static constexpr DftKind id = kind;
  static constexpr int alignment = fftAlignment;
  static constexpr bool releaseClearsId = true;
};

// The caller passes the memory that it gave: the record is at the first multiple of 64 in it.
inline const MoxsDFTSpec* planIn(const MoxsDFTSpec* memory) {
  return memory ? alignUp(memory, fftAlignment) : nullptr;
}

template <class F>
MoxStatus checkDft(const DftShape<F>& shape, int flag) {
  if (MoxStatus s = checkLength(shape.len)) return s;
  if (!fftNorm(flag).known) return moxErrFftFlag;
  return shape.status();
}

template <class F>
MoxStatus fillWithScratch(DftSpec<F>& plan, const DftShape<F>& shape, int flag, int hint) {
  const WorkBuffer scratch(nullptr, shape.sizes().init);
  if (scratch.failed()) return moxErrMemAlloc;
  fillDft(plan, shape.isReal, flag, hint, scratch.as<Mox8u>());
  return moxOk;
}

template <class Kind>
MoxStatus getDftSize(int len, int flag, int /*hint*/, int* specSize, int* initSize, int* workSize) {
  if (anyNull(specSize, initSize, workSize)) return moxErrNullPtr;
  const typename Kind::Shape shape{len, Kind::isReal};
  if (MoxStatus s = checkDft(shape, flag)) return s;
  const DftSizes bytes = shape.sizes();
  store(specSize, int(bytes.spec));
  store(initSize, int(bytes.init));
  store(workSize, bufferFigure(wholeLines(bytes.work)));
  return moxOk;
}

template <class Kind>
MoxStatus initDft(int len, int flag, int hint, Mox8u* specMem, Mox8u* initBuf) {
  if (anyNull(specMem)) return moxErrNullPtr;
  const typename Kind::Shape shape{len, Kind::isReal};
  if (MoxStatus s = checkDft(shape, flag)) return s;
  if (shape.sizes().init > 0 && anyNull(initBuf)) return moxErrNullPtr;
  MoxsDFTSpec* spec;
  return mox::init<Kind>(&spec, Kind::id, shape, specMem, [&](auto& plan) {
    fillDft(plan, Kind::isReal, flag, hint, initBuf);
    return moxOk;
  });
}

template <class Kind>
MoxStatus initAllocDft(MoxsDFTSpec** spec, int len, int flag, int hint) {
  if (anyNull(spec)) return moxErrNullPtr;
  const typename Kind::Shape shape{len, Kind::isReal};
  if (MoxStatus s = checkDft(shape, flag)) return s;
  return mox::initAlloc<Kind>(spec, Kind::id, shape,
                              [&](auto& plan) { return fillWithScratch(plan, shape, flag, hint); });
}

template <class Kind>
MoxStatus freeDft(MoxsDFTSpec* spec) {
  return release<Kind>(spec, Kind::id);
}

template <class Kind>
MoxStatus getDftBufSize(const MoxsDFTSpec* memory, int* size) {
  const MoxsDFTSpec* const spec = planIn(memory);
  if (anyNull(spec, size)) return moxErrNullPtr;
  if (MoxStatus s = requireId(spec, Kind::id)) return s;
  store(size, spec->bufSize);
  return moxOk;
}

// What all runs begin with: run(plan, work) on a plan of the kind, if the arrays are there.
template <class Record, class F, class Run>
MoxStatus runDft(const MoxsDFTSpec* memory, DftKind kind, bool anyArrayNull, Mox8u* buffer,
                 Run run) {
  const MoxsDFTSpec* const spec = planIn(memory);
  if (MoxStatus s = checkCall(spec, kind, anyArrayNull)) return s;
  const WorkBuffer work(buffer, spec->bufSize);
  if (work.failed()) return moxErrMemAlloc;
  run(static_cast<const Record&>(*spec), work.as<F>());
  return moxOk;
}

}  // namespace mox::transforms
