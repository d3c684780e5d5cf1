// Filters whose object only tells taps and method: the history comes and goes with each call.
#include <moxsp/fir_sr.h>

#include "frame/export.h"
#include "frame/lifecycle.h"
#include "frame/work_buffer.h"
#include "kernels/delay_store.h"
#include "kernels/sliding_dot.h"
#include "transforms/overlap_save.h"

namespace mox::fir {
namespace {

// Transforms are as long as 4 to 8 times the taps.
constexpr int fftOrder(long tapsLen) {
  int order = 3;
  while (1L << (order - 2) < tapsLen) ++order;
  return order;
}

template <class E>
struct SrRecord {
  long tapsLen;
  int algType;
  E* revTaps;
  transforms::OverlapSave<E> fft;

  bool takesFft(long len) const {
    return algType == moxAlgAuto ? tapsLen >= 64 && len >= 512 : algType == moxAlgFft;
  }
};

template <class E>
struct Sr {
  using Record = SrRecord<E>;
  struct Shape {
    long tapsLen;
    constexpr void layout(Arena& arena, Record& r) const {
      r.tapsLen = tapsLen;
      r.revTaps = arena.place<E>(std::size_t(tapsLen), vectorBytes);
      r.fft.place(arena, tapsLen - 1, fftOrder(tapsLen));
    }
  };
  static constexpr int alignment = 64;
};

// The work memory of a call.
template <class E>
struct Work {
  kernels::DelayStore<E> store;
  transforms::OverlapSave<E> fft;

  constexpr void place(Arena& arena, const SrRecord<E>& r) {
    store.place(arena, r.tapsLen - 1);
    fft = r.fft;
    fft.placeWork(arena);
  }
};
template <class E>
long workBytes(long tapsLen) {
  SrRecord<E> record{};
  Arena parts, work;
  typename Sr<E>::Shape{tapsLen}.layout(parts, record);
  Work<E>{}.place(work, record);
  return long(work.used()) + WorkBuffer::alignment;
}

// Filters whose transform would be too long, or whose sizes no int can hold, have too many taps.
template <class E>
MoxStatus checkTaps(int tapsLen) {
  if (tapsLen < 1 || fftOrder(tapsLen) > transforms::InnerFft<E>::mostOrder) return moxErrSize;
  return fitsInInt<Sr<E>>({tapsLen}) && workBytes<E>(tapsLen) <= INT_MAX ? moxOk
                                                                         : MoxStatus(moxErrSize);
}

template <class E>
MoxStatus report(int tapsLen, int* specSize, int* bufSize) {
  if (anyNull(specSize, bufSize)) return moxErrNullPtr;
  if (MoxStatus s = checkTaps<E>(tapsLen)) return s;
  store(specSize, int(objectBytes<Sr<E>>({tapsLen})));
  store(bufSize, int(workBytes<E>(tapsLen)));
  return moxOk;
}
MoxStatus getSize(int tapsLen, int dataType, int* specSize, int* bufSize) {
  if (tapsLen < 1) return moxErrSize;
  if (dataType == moxType32f) return report<Mox32f>(tapsLen, specSize, bufSize);
  if (dataType == moxType64f) return report<Mox64f>(tapsLen, specSize, bufSize);
  return moxErrDataType;
}

template <class E>
MoxStatus initSr(const E* taps, int tapsLen, int algType, MoxsFIRSRSpec* spec) {
  if (MoxStatus s = checkTaps<E>(tapsLen)) return s;
  if (anyNull(taps, spec)) return moxErrNullPtr;
  if (algType != moxAlgAuto && algType != moxAlgDirect && algType != moxAlgFft)
    return moxErrAlgType;
  SrRecord<E>& r = placeObject<Sr<E>>(spec, {tapsLen});
  r.algType = algType;
  for (int k = 0; k < tapsLen; ++k) r.revTaps[tapsLen - 1 - k] = load<E>(taps + k);
  r.fft.fill();
  r.fft.setTaps(tapsLen, [&](long k) { return r.revTaps[tapsLen - 1 - k]; });
  return moxOk;
}

// The samples before each stretch of input are in `dst` no more where that is `src`, and so a copy
// of them is kept.
template <class E>
void filterByFft(const E* src, E* dst, long len, long history, transforms::OverlapSave<E>& fft,
                 E* kept) {
  const bool inPlace = src == dst;
  const auto copy = [](const E* from, E* to, long count) {
    std::memcpy(to, from, std::size_t(count) * sizeof(E));
  };
  fft.run(
      len,
      [=](long i, long count, E* to) {
        const long past = inPlace && i > 0 ? history : 0;
        copy(kept, to, past);
        copy(src + i + past, to + past, count - past);
        copy(to + count - history, kept, history);
      },
      [=](long i) { return inPlace ? nullptr : src + i; },
      [=](const E* results, long i, long count) { copy(results, dst + i, count); });
}

template <class E>
MoxStatus firSr(const E* src, E* dst, int len, const E* dlySrc, E* dlyDst,
                const MoxsFIRSRSpec* spec, Mox8u* buffer) {
  if (MoxStatus s = checkArrays(len, src, dst, spec, buffer)) return s;
  const SrRecord<E>& r = recordIn<Sr<E>>(spec);
  Arena arena(alignUp(buffer, WorkBuffer::alignment));
  Work<E> work{};
  work.place(arena, r);
  auto& [store, fft] = work;
  store.setLine(dlySrc);
  const long history = r.tapsLen - 1;
  if (r.takesFft(len)) {
    std::copy_n(store.history(), history, fft.history());
    store.takeIn(src, len);
    filterByFft(src, dst, len, history, fft, store.appended());
  } else {
    store.run(src, dst, len, [&](const E* newest, E* to, long count) {
      kernels::filterWindow(newest - history, to, count, r.revTaps, r.tapsLen);
    });
  }
  if (dlyDst) store.getLine(dlyDst);
  return moxOk;
}

}  // namespace

MOX_EXPORT(moxsFIRSRGetSize, getSize);
MOX_EXPORT(moxsFIRSRInit_32f, initSr<Mox32f>);
MOX_EXPORT(moxsFIRSRInit_64f, initSr<Mox64f>);
MOX_EXPORT(moxsFIRSR_32f, firSr<Mox32f>);
MOX_EXPORT(moxsFIRSR_64f, firSr<Mox64f>);

}  // namespace mox::fir
