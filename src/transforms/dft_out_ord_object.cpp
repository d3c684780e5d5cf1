// The objects of the out-of-order DFT. Tables are the same in every rounding mode of the caller.
#include <moxsp/dft_out_ord.h>

#include "frame/export.h"
#include "frame/rounding_control.h"
#include "transforms/dft_object.h"
#include "transforms/dft_out_ord.h"
#include "transforms/dft_roots.h"

namespace mox::transforms {
namespace {

// Numbers of one block that a step of stage i takes; 0 for a stage without twiddles.
template <class F>
int stepNumbers(const OutOrdRadices& radices, int i) {
  if (radices.kind == OutOrdLeaf::radix) return lanesOf<F>;
  if (i < radices.stages) return lanesOf<F> / 2;
  return radices.coprime || i + 1 == radices.stages + radices.tileStages ? 0 : 1;
}

template <class F>
struct OutOrdKind {
  using Head = MoxsDFTOutOrdSpec;
  using Record = DftOutOrdSpec<F>;
  static constexpr int alignment = fftAlignment;
  static constexpr bool releaseClearsId = true;
  struct Shape {
    int len;
    OutOrdRadices radices = radicesOf(len);

    // Tiles are fast where many factors of 2 come before them, and lack leaves in short lengths.
    static OutOrdRadices radicesOf(int len) {
      const OutOrdRadices radices = outOrdRadices(len, lanesOf<F>);
      const bool suitsTiles = radices.kind == OutOrdLeaf::tile && len % 32 == 0;
      const DftShape<F> whole{len, false};
      if (suitsTiles || whole.analysis.method != DftMethod::mixed ||
          whole.sizes().work > outOrdWholeBytes)
        return radices;
      return {.leaf = len, .kind = OutOrdLeaf::whole};
    }

    // Of the plan for leaves that have one.
    DftShape<F> leaves() const { return {radices.leaf, false}; }
    bool isWhole() const { return radices.kind == OutOrdLeaf::whole; }
    bool hasLeafPlan() const { return isWhole() || radices.kind == OutOrdLeaf::plan; }

    void layout(Arena& arena, DftOutOrdSpec<F>& spec) const {
      spec.len = len;
      spec.radices = radices;
      int rest = len;
      for (int i = 0; i < radices.stages + radices.tileStages; ++i) {
        const int radix = radices.radix[i], numbers = stepNumbers<F>(radices, i);
        rest /= radix;
        spec.stage[i] = {radix, rest, nullptr};
        if (numbers == 0) continue;
        const long count = long(roundUp(std::size_t(rest), std::size_t(numbers))) * (radix - 1);
        spec.stage[i].twiddle = detail::placeTable<F>(arena, 2 * count);
      }
      if (radices.kind == OutOrdLeaf::tile) {
        spec.natural = arena.place<int>(std::size_t(radices.leaf));
        spec.placed = arena.place<int>(std::size_t(radices.leaf));
      }
      if (isWhole()) spec.place = arena.place<int>(std::size_t(len));
      if (hasLeafPlan()) spec.leafPlan = placeRecord<DftSpec<F>>(arena, leaves());
    }
  };
};

// In steps of `numbers` numbers, the last of which reaches back over the one before; those of whole
// vectors of numbers have their parts apart, in the order of deinterleaved().
template <class F>
void writeTwiddles(const OutOrdStage<F>& stage, long numbers, const Roots<F>& roots) {
  constexpr int l = lanesOf<F>;
  const long length = long(stage.radix) * stage.columns;
  F* table = stage.twiddle;
  for (long t = 0; t < stage.columns; t += numbers)
    for (int j = 1; j < stage.radix; ++j, table += 2 * numbers) {
      for (long i = 0; i < numbers; ++i) {
        const auto w = roots.of(j * (std::min(t, stage.columns - numbers) + i), length);
        table[2 * i] = w.re, table[2 * i + 1] = w.im;
      }
      if (numbers < l) continue;
      const Pair<V<F>> w = deinterleaved(load<V<F>>(table), load<V<F>>(table + l));
      store(table, w.re), store(table + l, w.im);
    }
}

int inverseModulo(int k, int n) {
  int inverse = 1;
  while (k * inverse % n != 1) ++inverse;
  return inverse;
}

// Radices without common divisors need no twiddles where the numbers and the bins of a leaf are
// taken in the order of their remainders (Good, 1958).
template <class F>
void writePlaces(const DftOutOrdSpec<F>& spec) {
  const OutOrdRadices& radices = spec.radices;
  const int n = radices.leaf;
  for (int k = 0; k < n; ++k) {
    const int place = digitReversed(k, n);
    int &natural = spec.natural[k] = k, &placed = spec.placed[place] = place;
    if (!radices.coprime) continue;
    natural = placed = 0;
    for (int i = radices.stages; i < radices.stages + radices.tileStages; ++i) {
      const auto [r, columns, twiddle] = spec.stage[i];
      natural += (r < n ? k % r * inverseModulo(n / r % r, r) % r : k) * columns;
      placed += digitReversed(k % r, r) * columns;
    }
  }
}

template <class F>
MoxStatus fill(DftOutOrdSpec<F>& spec, const typename OutOrdKind<F>::Shape& shape, int flag,
               int hint) {
  const int len = shape.len, stages = shape.radices.stages + shape.radices.tileStages;
  const WorkBuffer scratch(nullptr, stages > 0 ? 2 * long(sizeof(F)) * len : 0);
  if (scratch.failed()) return moxErrMemAlloc;
  const RoundingScope toNearest(Rounding::nearEven);
  const FftNorm norm = fftNorm(flag);
  const F factor = fftNormFactor<F>(flag, len);
  spec.hint = hint;
  spec.fwdFactor = norm.fwd ? factor : F(1);
  spec.invFactor = norm.inv ? factor : F(1);
  if (stages > 0) {
    const Roots<F> roots(scratch.as<Twiddle<F>>(), len);
    for (int i = 0; i < stages; ++i)
      if (spec.stage[i].twiddle)
        writeTwiddles(spec.stage[i], stepNumbers<F>(shape.radices, i), roots);
  }
  if (shape.radices.kind == OutOrdLeaf::tile) writePlaces(spec);
  if (!spec.leafPlan) return moxOk;
  constexpr int plain = 8;
  if (MoxStatus s = fillWithScratch(*spec.leafPlan, shape.leaves(), plain, 0)) return s;
  if (shape.isWhole()) {
    for (int k = 0; k < len; ++k) spec.place[k] = digitReversed(k, len);
    return moxOk;
  }
  spec.bufSize = spec.leafPlan->bufSize;
  spec.leafPlan->fwdNorm = norm.fwd;
  spec.leafPlan->invNorm = norm.inv;
  spec.leafPlan->normFactor = factor;
  return moxOk;
}

template <class F>
MoxStatus initAlloc(MoxsDFTOutOrdSpec** object, int len, int flag, int hint) {
  using Kind = OutOrdKind<F>;
  if (anyNull(object)) return moxErrNullPtr;
  if (MoxStatus s = checkLength(len)) return s;
  if (!fftNorm(flag).known) return moxErrFftFlag;
  if (len > DftLimits<F>::most) return moxErrSize;
  const typename Kind::Shape shape{len};
  if (shape.hasLeafPlan())
    if (MoxStatus s = shape.leaves().status()) return s;
  return mox::initAlloc<Kind>(object, dftOutOrdId<F>, shape, [&](DftOutOrdSpec<F>& spec) {
    return fill(spec, shape, flag, hint);
  });
}

template <class F>
MoxStatus free(MoxsDFTOutOrdSpec* spec) {
  return release<OutOrdKind<F>>(spec, dftOutOrdId<F>);
}

template <class F>
MoxStatus getBufSize(const MoxsDFTOutOrdSpec* spec, int* size) {
  if (anyNull(spec, size)) return moxErrNullPtr;
  if (MoxStatus s = requireId(spec, dftOutOrdId<F>)) return s;
  store(size, spec->bufSize);
  return moxOk;
}

}  // namespace

MOX_EXPORT(moxsDFTOutOrdInitAlloc_C_32fc, initAlloc<Mox32f>);
MOX_EXPORT(moxsDFTOutOrdInitAlloc_C_64fc, initAlloc<Mox64f>);
MOX_EXPORT(moxsDFTOutOrdFree_C_32fc, free<Mox32f>);
MOX_EXPORT(moxsDFTOutOrdFree_C_64fc, free<Mox64f>);
MOX_EXPORT(moxsDFTOutOrdGetBufSize_C_32fc, getBufSize<Mox32f>);
MOX_EXPORT(moxsDFTOutOrdGetBufSize_C_64fc, getBufSize<Mox64f>);

}  // namespace mox::transforms
