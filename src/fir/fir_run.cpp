// Blocks of samples: which engine runs, and in what chunks.
#include <moxsp/fir.h>

#include "fir/fir_direct.h"
#include "fir/fir_overlap_save.h"
#include "frame/checks.h"
#include "frame/export.h"
#include "frame/in_place.h"

namespace mox {
namespace {

// Appends samples to the delay store, makes a result of each and keeps the last tapsLen samples.
template <class C>
void filterInStore(FirState<typename C::Acc>& s, const typename C::Data* src,
                   typename C::Acc* results, long len) {
  auto* window = s.dlyLine + s.dlyIndex;
  s.dlyIndex = 0;
  C::enter(src, window + s.tapsLen, len);
  filterWindow(window + 1, results, len, s.revTaps, s.tapsLen);
  std::memmove(s.dlyLine, window + len, s.tapsLen * sizeof *window);
}

// The direct engine. Samples that are converted enter piece by piece; others are read where they
// are, but for the first ones of a block, which need the history before them.
template <class C>
void filterDirectly(FirState<typename C::Acc>& s, const typename C::Data* src,
                    typename C::Data* dst, long len, int scaleFactor) {
  if constexpr (C::converts) {
    for (long done = 0; done < len; done += firPiece) {
      const long piece = std::min<long>(firPiece, len - done);
      filterInStore<C>(s, src + done, s.staging, piece);
      C::leave(s.staging, dst + done, piece, scaleFactor);
    }
  } else if (len <= C::shortBlock(s.tapsLen)) {
    filterInStore<C>(s, src, dst, len);
  } else {
    const long taps = s.tapsLen, first = C::outputsFromStore(taps);
    filterInStore<C>(s, src, dst, first);
    C::enter(src + len - taps, s.dlyLine, taps);
    filterWindow(src + first - taps + 1, dst + first, len - first, s.revTaps, taps);
  }
}

// Without a delay line the samples before the first output are in the array: len + tapsLen - 1.
template <class A>
MoxStatus filterStream(const FirState<A>& s, const A* src, A* dst, long len) {
  if (src == dst) return moxErrContext;
  filterWindow(src, dst, len, s.revTaps, s.tapsLen);
  return moxOk;
}

// The least samples that the FFT engine runs for.
template <class A>
constexpr long leastLenForFft = Complex<A> ? 256 : 512;

template <class A>
bool runsByFft(const FirState<A>& s, long len) {
  return s.fftLen >= 1 && len >= leastLenForFft<A>;
}

template <class C>
MoxStatus filterBlock(FirState<typename C::Acc>& s, bool byFft, const typename C::Data* src,
                      typename C::Data* dst, long len, int scaleFactor) {
  if (byFft) return filterByOverlapSave<C>(s, src, dst, len, scaleFactor);
  filterDirectly<C>(s, src, dst, len, scaleFactor);
  return moxOk;
}

// The engines read samples behind results, so these go by way of `staging`. For samples that are
// converted the whole length decides on the engine, and the direct one, which has its own copy of
// them, needs no staging; else what is left after a chunk decides for that chunk.
template <class C>
MoxStatus filterInPlace(FirState<typename C::Acc>& s, typename C::Data* srcDst, long len,
                        int scaleFactor) {
  if (C::converts && !runsByFft(s, len))
    return filterBlock<C>(s, false, srcDst, srcDst, len, scaleFactor);
  constexpr long chunk = C::converts ? 2 * firChunk : firChunk;
  static_assert(chunk * sizeof(typename C::Data) <= firChunk * sizeof(typename C::Acc));
  auto* staging = reinterpret_cast<typename C::Data*>(s.staging);
  for (long rest = len; rest > 0;) {
    const long samples = std::min(rest, chunk);
    rest -= samples;
    const bool byFft = C::converts || runsByFft(s, rest);
    if (MoxStatus e = filterBlock<C>(s, byFft, srcDst, staging, samples, scaleFactor)) return e;
    std::memcpy(srcDst, staging, samples * sizeof *staging);
    srcDst += samples;
  }
  return moxOk;
}

template <class C>
MoxStatus firScaled(const typename C::Data* src, typename C::Data* dst, int len,
                    MoxsFIRState* state, int scaleFactor) {
  if (MoxStatus e = checkArrays(len, state, src, dst)) return e;
  if constexpr (C::hasStream)
    if (isOneOf(state, C::stream))
      return filterStream(stateOf<typename C::Acc>(state), src, dst, len);
  if (MoxStatus e = requireId(state, C::singleRate)) return e;
  auto& s = stateOf<typename C::Acc>(state);
  if (src == dst) return filterInPlace<C>(s, dst, len, scaleFactor);
  return filterBlock<C>(s, runsByFft(s, len), src, dst, len, scaleFactor);
}

template <class C>
MoxStatus fir(const typename C::Data* src, typename C::Data* dst, int len, MoxsFIRState* state) {
  return firScaled<C>(src, dst, len, state, 0);
}

}  // namespace

MOX_EXPORT(moxsFIR_32f, fir<Fir32f>);
MOX_EXPORT(moxsFIR_32fc, fir<Fir32fc>);
MOX_EXPORT(moxsFIR_64f, fir<Fir64f>);
MOX_EXPORT(moxsFIR_64fc, fir<Fir64fc>);
MOX_EXPORT(moxsFIR_32f_I, inPlace<fir<Fir32f>>);
MOX_EXPORT(moxsFIR_32fc_I, inPlace<fir<Fir32fc>>);
MOX_EXPORT(moxsFIR_64f_I, inPlace<fir<Fir64f>>);
MOX_EXPORT(moxsFIR_64fc_I, inPlace<fir<Fir64fc>>);
MOX_EXPORT(moxsFIR32f_16s_Sfs, firScaled<Fir32f16s>);
MOX_EXPORT(moxsFIR32f_16s_ISfs, inPlace<firScaled<Fir32f16s>>);

}  // namespace mox
