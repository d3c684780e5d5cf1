// Objects of the DCT, and its public transforms.
#include <moxsp/dct.h>

#include <algorithm>
#include <climits>
#include <cmath>
#include <numbers>

#include "frame/export.h"
#include "frame/in_place.h"
#include "transforms/dct_run.h"
#include "transforms/integer_run.h"

namespace mox::transforms {
namespace {

// Bytes that the size query tells, the slack for any address included.
struct DctFigures {
  long spec, init, work;
};

struct DctLife {
  using Head = MoxsDCTSpec;
  static constexpr int alignment = fftAlignment;
  static constexpr bool releaseClearsId = true;
};

// Of floats T.
template <class T, Direction d>
struct DctKind : DctLife {
  using Record = DctSpec<T>;
  static constexpr Mox32s id = (sizeof(T) == 4 ? 21 : 23) + (d == inv);

  struct Shape {
    int len;
    void layout(Arena& arena, Record& spec) const {
      const DctMethod method = dctMethod(len);
      if (method == DctMethod::direct)
        spec.table = arena.place<T>(std::size_t(4) * std::size_t(len), fftAlignment);
      if (method != DctMethod::dft) return;
      spec.table = arena.place<T>(2 * std::size_t(dctPairs(len)), fftAlignment);
      spec.dft.place(arena, len);
    }
  };

  static bool hasPlan(int len) {
    return dctMethod(len) != DctMethod::dft || InnerDft<T>::check(len) == moxOk;
  }
  static long workBytes(int len) {
    switch (dctMethod(len)) {
      case DctMethod::small:
        return 0;
      case DctMethod::direct:
        return long(sizeof(T)) * len;
      default:
        return dctSpectrumBytes<T>(len) + InnerDft<T>::workBytes(len);
    }
  }
  static DctFigures figures(int len) {
    switch (dctMethod(len)) {
      case DctMethod::small:
        return {132, 0, 0};
      case DctMethod::direct:
        return {4 * long(sizeof(T)) * len + 192, 0, workBytes(len) + fftAlignment};
      default:
        return {long(objectBytes<DctKind>({len})), InnerDft<T>::scratchBytes(len),
                workBytes(len) + fftAlignment};
    }
  }

  static void fill(Record& spec, int len, Mox8u* scratch) {
    const double n = len, pi = std::numbers::pi;
    spec.bufSize = Mox32s(workBytes(len));
    if (dctMethod(len) == DctMethod::direct) {
      spec.scale0 = firstScale(T(n));
      spec.scaleK = T(std::numbers::sqrt2 / std::sqrt(n));
      for (int i = 0; i < 4 * len; ++i) spec.table[i] = T(std::cos(pi * i / (2 * n)));
    } else if (dctMethod(len) == DctMethod::dft) {
      spec.scale0 = T(d == fwd ? 1 / std::sqrt(n) : std::sqrt(n));
      const double factor = d == fwd ? std::sqrt(2 / n) : std::sqrt(n / 2);
      const long pairs = dctPairs(len);
      for (long k = 1; k <= pairs; ++k) {
        const double angle = pi * double(k) / (2 * n);
        spec.table[k - 1] = T(factor * std::cos(angle));
        spec.table[pairs + k - 1] = T(factor * std::sin(angle));
      }
      spec.dft.fill(scratch);
    }
  }

 private:
  // 1 / sqrt(n); in single precision from the processor's estimate and one step of Newton's method.
  static Mox64f firstScale(Mox64f n) { return 1 / std::sqrt(n); }
  static Mox32f firstScale(Mox32f n) {
    const Mox32f e = reciprocalRootEstimate(broadcast<V<Mox32f, 4>>(n))[0];
    return e * -0.5f * (n * e * e - 3);
  }
};

// Of 16-bit integers: the object of floats is the first part, unless the length is 1.
template <Direction d>
struct DctKind<Mox16s, d> : DctLife {
  using Floats = DctKind<Mox32f, d>;
  struct Record : MoxsDCTSpec {};
  static constexpr Mox32s id = 19 + (d == inv);

  struct Shape {
    int len;
    void layout(Arena& arena, Record&) const {
      if (len > 1) placeRecord<DctSpec<Mox32f>>(arena, typename Floats::Shape{len});
    }
  };
  template <class Head>
  static auto& floats(Head& spec) {
    using Spec = std::conditional_t<std::is_const_v<Head>, const DctSpec<Mox32f>, DctSpec<Mox32f>>;
    return *reinterpret_cast<Spec*>(alignUp(&spec + 1, partAlignment));
  }

  static bool hasPlan(int len) { return Floats::hasPlan(len); }
  static DctFigures figures(int len) {
    if (len == 1) return {88, 0, 0};
    const DctFigures f = Floats::figures(len);
    return {f.spec + 88, f.init, f.work + long(sizeof(Mox32f)) * len + fftAlignment};
  }
  static void fill(Record& spec, int len, Mox8u* scratch) {
    if (len == 1) return;
    spec.bufSize = Mox32s(figures(len).work) - fftAlignment;
    floats(spec).len = len;
    Floats::fill(floats(spec), len, scratch);
  }
};

// The lengths that have no object; the size query knows fewer.
template <class Kind>
MoxStatus checkLimit(int len, int most) {
  constexpr int mostPower = 0xFFFFFFF;
  const bool isPower = std::has_single_bit(unsigned(len));
  if (len > (isPower ? mostPower : most) || !Kind::hasPlan(len)) return moxErrSize;
  const DctFigures f = Kind::figures(len);
  return std::max({f.spec, f.init, f.work}) > INT_MAX ? moxErrSize : moxOk;
}
constexpr int mostOfQuery = 0x1FFFFFF, mostOfInit = 0x3FFFFFF;

template <class Kind>
MoxStatus getSize(int len, int /*hint*/, int* specSize, int* initSize, int* workSize) {
  if (MoxStatus s = checkLength(len)) return s;
  if (anyNull(specSize, initSize, workSize)) return moxErrNullPtr;
  if (MoxStatus s = checkLimit<Kind>(len, mostOfQuery)) return s;
  const DctFigures f = Kind::figures(len);
  store(specSize, int(f.spec)), store(initSize, int(f.init)), store(workSize, int(f.work));
  return moxOk;
}

template <class Kind>
auto filler(int len, int hint, Mox8u* scratch) {
  return [=](typename Kind::Record& spec) -> MoxStatus {
    spec.len = len, spec.hint = hint;
    Kind::fill(spec, len, scratch);
    return moxOk;
  };
}

template <class Kind>
MoxStatus init(MoxsDCTSpec** spec, int len, int hint, Mox8u* specMem, Mox8u* initBuf) {
  if (MoxStatus s = checkLength(len)) return s;
  if (anyNull(spec, specMem)) return moxErrNullPtr;
  if (MoxStatus s = checkLimit<Kind>(len, mostOfInit)) return s;
  if (Kind::figures(len).init > 0 && anyNull(initBuf)) return moxErrNullPtr;
  return mox::init<Kind>(spec, Kind::id, {len}, specMem, filler<Kind>(len, hint, initBuf));
}

template <class Kind>
MoxStatus initAlloc(MoxsDCTSpec** spec, int len, int hint) {
  if (anyNull(spec)) return moxErrNullPtr;
  if (MoxStatus s = checkLength(len)) return s;
  if (MoxStatus s = checkLimit<Kind>(len, mostOfQuery)) return s;
  const WorkBuffer scratch(nullptr, Kind::figures(len).init);
  if (scratch.failed()) return moxErrMemAlloc;
  return mox::initAlloc<Kind>(spec, Kind::id, {len}, filler<Kind>(len, hint, scratch.as<Mox8u>()));
}

template <class Kind>
MoxStatus free(MoxsDCTSpec* spec) {
  return release<Kind>(spec, Kind::id);
}

template <class Kind>
MoxStatus getBufSize(const MoxsDCTSpec* spec, int* size) {
  if (anyNull(spec, size)) return moxErrNullPtr;
  if (MoxStatus s = requireId(spec, Kind::id)) return s;
  store(size, bufferFigure(spec->bufSize));
  return moxOk;
}

template <Direction d, class F>
MoxStatus run(const F* src, F* dst, const MoxsDCTSpec* spec, Mox8u* buffer) {
  if (anyNull(src, dst, spec)) return moxErrNullPtr;
  if (MoxStatus s = requireId(spec, DctKind<F, d>::id)) return s;
  const WorkBuffer work(buffer, spec->bufSize);
  if (work.failed()) return moxErrMemAlloc;
  ownDctRun<d>(static_cast<const DctSpec<F>&>(*spec), src, dst, work.as<F>());
  return moxOk;
}

template <Direction d>
MoxStatus runScaled(const Mox16s* src, Mox16s* dst, const MoxsDCTSpec* spec, int scaleFactor,
                    Mox8u* buffer) {
  using Kind = DctKind<Mox16s, d>;
  if (anyNull(src, dst, spec)) return moxErrNullPtr;
  if (MoxStatus s = requireId(spec, Kind::id)) return s;
  const WorkBuffer work(buffer, spec->bufSize);
  if (work.failed()) return moxErrMemAlloc;
  const long len = spec->len;
  const auto runOn = [&](Mox32f* area, auto transform) {
    integerRun(Array<const Mox16s>{src}, len, Array<Mox16s>{dst}, len, scaleFactor, area,
               transform);
  };
  Mox32f single;
  if (len == 1)
    runOn(&single, [](auto) {});
  else
    runOn(work.as<Mox32f>(), [&](auto data) {
      ownDctRun<d>(Kind::floats(*spec), data.p, data.p, alignUp(data.p + len, fftAlignment));
    });
  return moxOk;
}

}  // namespace

MOX_EXPORT(moxsDCTFwdGetSize_16s, getSize<DctKind<Mox16s, fwd>>);
MOX_EXPORT(moxsDCTFwdGetSize_32f, getSize<DctKind<Mox32f, fwd>>);
MOX_EXPORT(moxsDCTFwdGetSize_64f, getSize<DctKind<Mox64f, fwd>>);
MOX_EXPORT(moxsDCTFwdInit_16s, init<DctKind<Mox16s, fwd>>);
MOX_EXPORT(moxsDCTFwdInit_32f, init<DctKind<Mox32f, fwd>>);
MOX_EXPORT(moxsDCTFwdInit_64f, init<DctKind<Mox64f, fwd>>);
MOX_EXPORT(moxsDCTFwdInitAlloc_16s, initAlloc<DctKind<Mox16s, fwd>>);
MOX_EXPORT(moxsDCTFwdInitAlloc_32f, initAlloc<DctKind<Mox32f, fwd>>);
MOX_EXPORT(moxsDCTFwdInitAlloc_64f, initAlloc<DctKind<Mox64f, fwd>>);
MOX_EXPORT(moxsDCTFwdFree_16s, free<DctKind<Mox16s, fwd>>);
MOX_EXPORT(moxsDCTFwdFree_32f, free<DctKind<Mox32f, fwd>>);
MOX_EXPORT(moxsDCTFwdFree_64f, free<DctKind<Mox64f, fwd>>);
MOX_EXPORT(moxsDCTFwdGetBufSize_16s, getBufSize<DctKind<Mox16s, fwd>>);
MOX_EXPORT(moxsDCTFwdGetBufSize_32f, getBufSize<DctKind<Mox32f, fwd>>);
MOX_EXPORT(moxsDCTFwdGetBufSize_64f, getBufSize<DctKind<Mox64f, fwd>>);
MOX_EXPORT(moxsDCTInvGetSize_16s, getSize<DctKind<Mox16s, inv>>);
MOX_EXPORT(moxsDCTInvGetSize_32f, getSize<DctKind<Mox32f, inv>>);
MOX_EXPORT(moxsDCTInvGetSize_64f, getSize<DctKind<Mox64f, inv>>);
MOX_EXPORT(moxsDCTInvInit_16s, init<DctKind<Mox16s, inv>>);
MOX_EXPORT(moxsDCTInvInit_32f, init<DctKind<Mox32f, inv>>);
MOX_EXPORT(moxsDCTInvInit_64f, init<DctKind<Mox64f, inv>>);
MOX_EXPORT(moxsDCTInvInitAlloc_16s, initAlloc<DctKind<Mox16s, inv>>);
MOX_EXPORT(moxsDCTInvInitAlloc_32f, initAlloc<DctKind<Mox32f, inv>>);
MOX_EXPORT(moxsDCTInvInitAlloc_64f, initAlloc<DctKind<Mox64f, inv>>);
MOX_EXPORT(moxsDCTInvFree_16s, free<DctKind<Mox16s, inv>>);
MOX_EXPORT(moxsDCTInvFree_32f, free<DctKind<Mox32f, inv>>);
MOX_EXPORT(moxsDCTInvFree_64f, free<DctKind<Mox64f, inv>>);
MOX_EXPORT(moxsDCTInvGetBufSize_16s, getBufSize<DctKind<Mox16s, inv>>);
MOX_EXPORT(moxsDCTInvGetBufSize_32f, getBufSize<DctKind<Mox32f, inv>>);
MOX_EXPORT(moxsDCTInvGetBufSize_64f, getBufSize<DctKind<Mox64f, inv>>);
MOX_EXPORT_BOTH(moxsDCTFwd_32f, moxsDCTFwd_32f_I, run<fwd>);
MOX_EXPORT_BOTH(moxsDCTFwd_64f, moxsDCTFwd_64f_I, run<fwd>);
MOX_EXPORT_BOTH(moxsDCTFwd_16s_Sfs, moxsDCTFwd_16s_ISfs, runScaled<fwd>);
MOX_EXPORT_BOTH(moxsDCTInv_32f, moxsDCTInv_32f_I, run<inv>);
MOX_EXPORT_BOTH(moxsDCTInv_64f, moxsDCTInv_64f_I, run<inv>);
MOX_EXPORT_BOTH(moxsDCTInv_16s_Sfs, moxsDCTInv_16s_ISfs, runScaled<inv>);

}  // namespace mox::transforms
