// The analytic signal: a real DFT, of which the negative frequencies are dropped and the positive
// ones doubled, and a complex DFT back.
#include <moxsp/hilbert.h>

#include <algorithm>

#include "arith/mul_constant.h"
#include "convert/samples.h"
#include "frame/export.h"
#include "frame/lifecycle.h"
#include "frame/work_buffer.h"
#include "transforms/inner_dft.h"
#include "transforms/length_head.h"

struct MoxsHilbertSpec : mox::transforms::LengthHead {};

namespace mox::transforms {
namespace {

enum HilbertId : Mox32s {
  hilbert32f32fc = 0x434D4145,
  hilbert16s32fc = 0x434D4146,
  hilbert16s16sc = 0x434D4147
};

struct HilbertSpec : MoxsHilbertSpec {
  InnerDft<Mox32f> real;
  InnerDft<Mox32fc> complex;
};

struct HilbertKind {
  using Head = MoxsHilbertSpec;
  using Record = HilbertSpec;
  static constexpr int alignment = fftAlignment;
  static constexpr bool releaseClearsId = true;
  struct Shape {
    int len;
    void layout(Arena& arena, HilbertSpec& spec) const {
      spec.real.place(arena, len);
      spec.complex.place(arena, len);
    }
  };
};

constexpr int leastTransformed = 3;

template <HilbertId id>
MoxStatus initAlloc(MoxsHilbertSpec** spec, int len, int hint) {
  using Real = InnerDft<Mox32f>;
  using Complex = InnerDft<Mox32fc>;
  if (anyNull(spec)) return moxErrNullPtr;
  if (MoxStatus s = checkLength(len)) return s;
  if (MoxStatus s = Complex::check(len)) return s;
  if (MoxStatus s = Real::check(len)) return s;
  const WorkBuffer scratch(nullptr, std::max(Real::scratchBytes(len), Complex::scratchBytes(len)));
  if (scratch.failed()) return moxErrMemAlloc;
  return mox::initAlloc<HilbertKind>(spec, id, {len}, [&](HilbertSpec& record) -> MoxStatus {
    record.len = len;
    record.hint = hint;
    record.bufSize = Mox32s(std::max(Real::workBytes(len), Complex::workBytes(len)));
    record.real.fill(scratch.as<Mox8u>());
    record.complex.fill(scratch.as<Mox8u>());
    return moxOk;
  });
}

template <HilbertId id>
MoxStatus free(MoxsHilbertSpec* spec) {
  return release<HilbertKind>(spec, id);
}

void analyse(const HilbertSpec& spec, const Mox32f* src, Mox32fc* dst, Mox8u* work) {
  const long len = spec.len, half = len / 2, doubled = half - 1 + len % 2;
  spec.real.forward(src, parts(dst), work);
  arith::ownsMulC_I(2.0f, parts(dst + 1), 2 * doubled);
  std::memset(static_cast<void*>(dst + half + 1), 0, std::size_t(doubled) * sizeof(Mox32fc));
  spec.complex.inverse(dst, dst, work);
}

// Samples that aren't floats are converted in the memory of the call, and results likewise.
template <HilbertId id, class S, class D>
MoxStatus transform(const S* src, D* dst, const MoxsHilbertSpec* object, int scaleFactor) {
  constexpr bool takesIn = !std::is_same_v<S, Mox32f>, givesOut = !std::is_same_v<D, Mox32fc>;
  if (anyNull(src, dst, object)) return moxErrNullPtr;
  if (MoxStatus s = requireId(object, id)) return s;
  const auto& spec = static_cast<const HilbertSpec&>(*object);
  const long len = spec.len;

  if (len < leastTransformed) {
    Mox32f samples[leastTransformed];
    convert::takeIn(src, samples, len);
    for (long i = 0; i < len; ++i) {
      const Mox32fc z = {samples[i], 0};
      convert::giveOut(&z, dst + i, 1, scaleFactor);
    }
    return moxOk;
  }

  const long workBytes = wholeLines(spec.bufSize);
  const long sampleBytes = takesIn ? wholeLines(len * long(sizeof(Mox32f))) : 0;
  const long bytes = workBytes + sampleBytes + (givesOut ? len * long(sizeof(Mox32fc)) : 0);
  const WorkBuffer memory(nullptr, bytes);
  if (memory.failed()) return moxErrMemAlloc;
  auto* const work = memory.as<Mox8u>();
  auto* const samples = reinterpret_cast<Mox32f*>(work + workBytes);
  if constexpr (takesIn) convert::takeIn(src, samples, len);
  if constexpr (givesOut) {
    auto* const results = reinterpret_cast<Mox32fc*>(work + workBytes + sampleBytes);
    analyse(spec, samples, results, work);
    convert::giveOut(results, dst, len, scaleFactor);
  } else if constexpr (takesIn) {
    analyse(spec, samples, dst, work);
  } else {
    analyse(spec, src, dst, work);
  }
  return moxOk;
}

template <HilbertId id, class S>
MoxStatus toFloats(const S* src, Mox32fc* dst, const MoxsHilbertSpec* spec) {
  return transform<id>(src, dst, spec, 0);
}
MoxStatus toIntegers(const Mox16s* src, Mox16sc* dst, const MoxsHilbertSpec* spec,
                     int scaleFactor) {
  const HiddenExceptions scope;
  return transform<hilbert16s16sc>(src, dst, spec, scaleFactor);
}

}  // namespace

MOX_EXPORT(moxsHilbertInitAlloc_32f32fc, initAlloc<hilbert32f32fc>);
MOX_EXPORT(moxsHilbertInitAlloc_16s32fc, initAlloc<hilbert16s32fc>);
MOX_EXPORT(moxsHilbertInitAlloc_16s16sc, initAlloc<hilbert16s16sc>);
MOX_EXPORT(moxsHilbertFree_32f32fc, free<hilbert32f32fc>);
MOX_EXPORT(moxsHilbertFree_16s32fc, free<hilbert16s32fc>);
MOX_EXPORT(moxsHilbertFree_16s16sc, free<hilbert16s16sc>);
MOX_EXPORT(moxsHilbert_32f32fc, toFloats<hilbert32f32fc>);
MOX_EXPORT(moxsHilbert_16s32fc, toFloats<hilbert16s32fc>);
MOX_EXPORT(moxsHilbert_16s16sc_Sfs, toIntegers);

}  // namespace mox::transforms
