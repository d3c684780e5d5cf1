// Blocks of samples: which engine runs, and in what chunks.
#include "fir/fir_state.h"
#include "frame/checks.h"
#include "frame/export.h"
#include "frame/in_place.h"
#include "kernels/sliding_dot.h"

namespace mox::fir {
namespace {

template <class C>
constexpr bool converts = !std::is_same_v<typename C::Data, typename C::Held>;

// Appends samples to the delay store, makes a result of each and keeps the last tapsLen samples.
template <class C>
void filterInStore(StateOf<C>& s, const typename C::Data* src, typename C::Sum* results, long len) {
  auto* window = s.dlyLine + s.dlyIndex;
  s.dlyIndex = 0;
  convert::takeIn(src, window + s.tapsLen, len);
  kernels::filterWindow(window + 1, results, len, s.revTaps, s.tapsLen);
  std::memmove(s.dlyLine, window + len, s.tapsLen * sizeof *window);
}

// The direct engine. Samples that are converted enter piece by piece; others are read where they
// are, but for the first ones of a block, which need the history before them.
template <class C>
void filterDirectly(StateOf<C>& s, const typename C::Data* src, typename C::Data* dst, long len,
                    int scaleFactor) {
  const long taps = s.tapsLen, first = outputsFromStore<typename C::Held>(taps);
  if constexpr (converts<C>) {
    for (long done = 0; done < len; done += pieceLen) {
      const long piece = std::min<long>(pieceLen, len - done);
      filterInStore<C>(s, src + done, s.staging, piece);
      convert::giveOut(s.staging, dst + done, piece, scaleFactor);
    }
  } else if (len <= first) {
    filterInStore<C>(s, src, dst, len);
  } else {
    filterInStore<C>(s, src, dst, first);
    convert::takeIn(src + len - taps, s.dlyLine, taps);
    kernels::filterWindow(src + first - taps + 1, dst + first, len - first, s.revTaps, taps);
  }
}

// The FFT engine, on arrays that don't overlap.
template <class C>
void filterByFft(StateOf<C>& s, const typename C::Data* src, typename C::Data* dst, long len,
                 int scaleFactor) {
  using Held = typename C::Held;
  const long taps = s.tapsLen;
  Held* const window = s.dlyLine + s.dlyIndex;
  s.dlyIndex = 0;
  s.fft.setHistory(window + 1);
  const long entering = std::min(len, taps);
  std::memmove(s.dlyLine, window + entering, std::size_t(taps - entering) * sizeof(Held));
  convert::takeIn(src + len - entering, s.dlyLine + taps - entering, entering);
  s.fft.run(
      len, [=](long i, long count, Held* to) { convert::takeIn(src + i, to, count); },
      [=](long i) -> const Held* {
        if constexpr (converts<C>)
          return nullptr;
        else
          return src + i;
      },
      [=](const Held* results, long i, long count) {
        convert::giveOut(results, dst + i, count, scaleFactor);
      });
}

// Without a delay line the samples before the first output are in the array: len + tapsLen - 1.
template <class C>
MoxStatus filterStream(const StateOf<C>& s, const typename C::Data* src, typename C::Data* dst,
                       long len) {
  if (src == dst) return moxErrContext;
  kernels::filterWindow(src, dst, len, s.revTaps, s.tapsLen);
  return moxOk;
}

// The least samples that the FFT engine runs for.
template <class C>
constexpr long leastLenForFft = Complex<typename C::Held> ? 256 : 512;

template <class C>
bool runsByFft(const StateOf<C>& s, long len) {
  return s.hasFft && len >= leastLenForFft<C>;
}

template <class C>
void filterBlock(StateOf<C>& s, bool byFft, const typename C::Data* src, typename C::Data* dst,
                 long len, int scaleFactor) {
  byFft ? filterByFft<C>(s, src, dst, len, scaleFactor)
        : filterDirectly<C>(s, src, dst, len, scaleFactor);
}

// The engines read samples behind results, so these go by way of `staging`. For samples that are
// converted the whole length decides on the engine, and the direct one, which has its own copy of
// them, needs no staging; else what is left after a chunk decides for that chunk.
template <class C>
void filterInPlace(StateOf<C>& s, typename C::Data* srcDst, long len, int scaleFactor) {
  if (converts<C> && !runsByFft<C>(s, len))
    return filterDirectly<C>(s, srcDst, srcDst, len, scaleFactor);
  constexpr long chunk = converts<C> ? 2 * chunkLen : chunkLen;
  static_assert(chunk * sizeof(typename C::Data) <= chunkLen * sizeof(typename C::Sum));
  auto* staging = reinterpret_cast<typename C::Data*>(s.staging);
  for (long rest = len; rest > 0;) {
    const long samples = std::min(rest, chunk);
    rest -= samples;
    filterBlock<C>(s, converts<C> || runsByFft<C>(s, rest), srcDst, staging, samples, scaleFactor);
    std::memcpy(srcDst, staging, samples * sizeof *staging);
    srcDst += samples;
  }
}

template <class C>
MoxStatus firScaled(const typename C::Data* src, typename C::Data* dst, int len,
                    MoxsFIRState* state, int scaleFactor) {
  if (MoxStatus e = checkArrays(len, state, src, dst)) return e;
  if constexpr (C::ids.hasStream())
    if (isOneOf(state, C::ids.stream)) return filterStream<C>(stateOf<C>(state), src, dst, len);
  if (MoxStatus e = requireId(state, C::ids.single)) return e;
  auto& s = stateOf<C>(state);
  if (src == dst)
    filterInPlace<C>(s, dst, len, scaleFactor);
  else
    filterBlock<C>(s, runsByFft<C>(s, len), src, dst, len, scaleFactor);
  return moxOk;
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

}  // namespace mox::fir
