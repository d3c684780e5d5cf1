// Autocorrelation.
#include <moxsp/corr.h>

#include "corr/corr_selector.h"
#include "corr/float_signal.h"

namespace mox::corr {
namespace {

// Lags from which on the transform runs.
template <class E>
constexpr long leastLagsForFft = !Complex<E>      ? 856
                                 : sizeof(E) == 8 ? 152
                                                  : 368;

template <class E>
bool takesFft(Method method, long lags) {
  return method == Method::automatic ? lags >= leastLagsForFft<E> : method == Method::fft;
}

// The transform of the signal and as many zeros, in place.
constexpr int orderFor(long srcLen) { return leastOrder(2 * srcLen, 1); }
constexpr int arrays = 1;

template <class E>
struct Spectrum {
  transforms::InnerFft<E> fft;
  E* room;

  constexpr void place(Arena& arena, int order) {
    fft.place(arena, order);
    room = arena.place<E>(fft.roomElements(order), transforms::fftAlignment);
  }
};
static_assert(figuresSuffice(arrays, []<class E>(Arena& arena, E, int order) {
  Spectrum<E>{}.place(arena, order);
}));

template <class E>
MoxStatus correlateByFft(const E* src, long srcLen, E* dst, long lags, Mox8u* buffer) {
  const int order = orderFor(srcLen);
  return inFftBuffer<E>(order, arrays, buffer, [&](Arena arena) {
    Spectrum<E> spectrum{};
    spectrum.place(arena, order);
    auto& [fft, room] = spectrum;
    fft.fill(order, room);
    convert::takeIn(src, room, srcLen);
    std::fill(room + srcLen, room + fft.length(), E{});
    fft.forward(room, room);
    fft.squareMagnitudes(room);
    fft.inverse(room, room);
    convert::takeIn(room, dst, lags);
  });
}

template <class E>
MoxStatus correlateBy(Method method, const E* src, long srcLen, E* dst, long dstLen,
                      Mox8u* buffer = nullptr) {
  const long lags = std::min(srcLen, dstLen);
  if (!takesFft<E>(method, lags))
    sumDirectly<E>({Kind::correlation, src, srcLen, src, srcLen, 0}, dst, lags);
  else if (MoxStatus s = correlateByFft(src, srcLen, dst, lags, buffer))
    return s;
  std::memset(static_cast<void*>(dst + lags), 0, std::size_t(dstLen - lags) * sizeof(E));
  return moxOk;
}

template <class E>
void normalize(Normalization kind, E* dst, long dstLen, long srcLen) {
  const long lags = std::min(srcLen, dstLen);
  if (kind == Normalization::byLength) multiplyBy(1 / Part<E>(srcLen), dst, lags);
  if (kind == Normalization::byTerms) divideByRamp(srcLen, -1, dst, lags);
}

template <Normalization kind, class E>
MoxStatus autoCorr(const E* src, int srcLen, E* dst, int dstLen) {
  if (MoxStatus s = checkArrays(std::min(srcLen, dstLen), src, dst)) return s;
  if (MoxStatus s = correlateBy(Method::automatic, src, srcLen, dst, dstLen)) return s;
  normalize(kind, dst, dstLen, srcLen);
  return moxOk;
}

template <Normalization kind>
MoxStatus autoCorrScaled(const Mox16s* src, int srcLen, Mox16s* dst, int dstLen, int scaleFactor) {
  if (MoxStatus s = checkArrays(std::min(srcLen, dstLen), src, dst)) return s;
  const HiddenExceptions scope;
  const FloatSignal x(src, srcLen), sums(dstLen);
  if (x.failed() || sums.failed()) return moxErrMemAlloc;
  if (MoxStatus s = autoCorr<kind>(x.samples(), srcLen, sums.samples(), dstLen)) return s;
  sums.giveOut(dst, scaleFactor);
  return moxOk;
}

template <class E>
MoxStatus autoCorrNorm(const E* src, int srcLen, E* dst, int dstLen, int algType, Mox8u* buffer) {
  if (MoxStatus s = checkArrays(std::min(srcLen, dstLen), src, dst, buffer)) return s;
  const Selector selector(algType);
  if (!selector.hasMethod()) return moxErrAlgType;
  if (MoxStatus s = correlateBy(selector.method(), src, srcLen, dst, dstLen, buffer)) return s;
  if (!selector.hasNormalization()) return moxErrAlgType;
  normalize(selector.normalization(), dst, dstLen, srcLen);
  return moxOk;
}

MoxStatus autoCorrNormGetBufferSize(int srcLen, int dstLen, int dataType, int algType,
                                    int* bufferSize) {
  if (MoxStatus s = checkArrays(std::min(srcLen, dstLen), bufferSize)) return s;
  return reportSizeBy(algType, dataType, bufferSize, [&]<class E>(Method method, E) -> long {
    if (!takesFft<E>(method, std::min(srcLen, dstLen))) return WorkBuffer::alignment;
    return fftFigure<E>(orderFor(srcLen), arrays);
  });
}

}  // namespace

MOX_EXPORT(moxsAutoCorr_32f, autoCorr<Normalization::none>);
MOX_EXPORT(moxsAutoCorr_32fc, autoCorr<Normalization::none>);
MOX_EXPORT(moxsAutoCorr_64f, autoCorr<Normalization::none>);
MOX_EXPORT(moxsAutoCorr_64fc, autoCorr<Normalization::none>);
MOX_EXPORT(moxsAutoCorr_16s_Sfs, autoCorrScaled<Normalization::none>);
MOX_EXPORT(moxsAutoCorr_NormA_32f, autoCorr<Normalization::byLength>);
MOX_EXPORT(moxsAutoCorr_NormA_32fc, autoCorr<Normalization::byLength>);
MOX_EXPORT(moxsAutoCorr_NormA_64f, autoCorr<Normalization::byLength>);
MOX_EXPORT(moxsAutoCorr_NormA_64fc, autoCorr<Normalization::byLength>);
MOX_EXPORT(moxsAutoCorr_NormA_16s_Sfs, autoCorrScaled<Normalization::byLength>);
MOX_EXPORT(moxsAutoCorr_NormB_32f, autoCorr<Normalization::byTerms>);
MOX_EXPORT(moxsAutoCorr_NormB_32fc, autoCorr<Normalization::byTerms>);
MOX_EXPORT(moxsAutoCorr_NormB_64f, autoCorr<Normalization::byTerms>);
MOX_EXPORT(moxsAutoCorr_NormB_64fc, autoCorr<Normalization::byTerms>);
MOX_EXPORT(moxsAutoCorr_NormB_16s_Sfs, autoCorrScaled<Normalization::byTerms>);

MOX_EXPORT(moxsAutoCorrNorm_32f, autoCorrNorm);
MOX_EXPORT(moxsAutoCorrNorm_32fc, autoCorrNorm);
MOX_EXPORT(moxsAutoCorrNorm_64f, autoCorrNorm);
MOX_EXPORT(moxsAutoCorrNorm_64fc, autoCorrNorm);
MOX_EXPORT(moxsAutoCorrNormGetBufferSize, autoCorrNormGetBufferSize);

}  // namespace mox::corr
