// Blocks of samples at one rate: which engine runs, and in what chunks.
#pragma once

#include "fir/fir_state.h"
#include "fir/output.h"
#include "kernels/sliding_dot.h"
#include "kernels/wrapping_dot.h"

namespace mox::fir {

// Appends samples to the delay store, makes a result of each and keeps the last tapsLen samples.
template <class C>
void filterInStore(StateOf<C>& s, const typename C::Data* src, typename C::Sum* results, long len) {
  auto* window = s.dlyLine + s.dlyIndex;
  s.dlyIndex = 0;
  convert::takeIn(src, window + s.tapsLen, len);
  kernels::filterWindow(window + 1, results, len, s.heldTaps, s.tapsLen);
  std::memmove(s.dlyLine, window + len, s.tapsLen * sizeof *window);
}

// The direct engine. Samples that are converted, or whose results are, enter piece by piece; others
// are read where they are, but for the first ones of a block, which need the history before them.
template <class C>
void filterDirectly(StateOf<C>& s, const typename C::Data* src, typename C::Data* dst, long len,
                    const Output<C>& output) {
  if constexpr (converts<C>) {
    for (long done = 0; done < len; done += pieceLen) {
      const long piece = std::min<long>(pieceLen, len - done);
      filterInStore<C>(s, src + done, s.staging, piece);
      output(s.staging, dst + done, piece);
    }
  } else {
    const long taps = s.tapsLen, first = outputsFromStore<typename C::Held>(taps);
    if (len <= first) return filterInStore<C>(s, src, dst, len);
    filterInStore<C>(s, src, dst, first);
    convert::takeIn(src + len - taps, s.dlyLine, taps);
    kernels::filterWindow(src + first - taps + 1, dst + first, len - first, s.heldTaps, taps);
  }
}

// The FFT engine, on arrays that don't overlap.
template <class C>
void filterByFft(StateOf<C>& s, const typename C::Data* src, typename C::Data* dst, long len,
                 const Output<C>& output) {
  using Held = typename C::Held;
  const long taps = s.tapsLen;
  Held* const window = s.dlyLine + s.dlyIndex;
  s.dlyIndex = 0;
  std::copy_n(window + 1, taps - 1, s.fft.history());
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
      [=](const Held* results, long i, long count) { output(results, dst + i, count); });
}

// The least samples that the FFT engine runs for.
template <class C>
constexpr long leastLenForFft = Complex<typename C::Held> ? 256 : 512;

template <class C>
bool runsByFft(const StateOf<C>& s, long len) {
  if constexpr (isFloating<C>)
    return s.hasFft && len >= leastLenForFft<C>;
  else
    return false;
}

template <class C>
void filterBlock(StateOf<C>& s, bool byFft, const typename C::Data* src, typename C::Data* dst,
                 long len, const Output<C>& output) {
  if constexpr (isFloating<C>)
    if (byFft) return filterByFft<C>(s, src, dst, len, output);
  filterDirectly<C>(s, src, dst, len, output);
}

// The engines read samples behind results, so these go by way of `staging`. Where something is
// converted the whole length decides on the engine, and the direct one, which has its own copy of
// the samples, needs no staging; else what is left after a chunk decides for that chunk.
template <class C>
void filterInPlace(StateOf<C>& s, typename C::Data* srcDst, long len, const Output<C>& output) {
  if (converts<C> && !runsByFft<C>(s, len))
    return filterDirectly<C>(s, srcDst, srcDst, len, output);
  constexpr long chunk = converts<C> ? 2 * chunkLen : chunkLen;
  static_assert(chunk * sizeof(typename C::Data) <= chunkLen * sizeof(typename C::Sum));
  auto* staging = reinterpret_cast<typename C::Data*>(s.staging);
  for (long rest = len; rest > 0;) {
    const long samples = std::min(rest, chunk);
    rest -= samples;
    filterBlock<C>(s, converts<C> || runsByFft<C>(s, rest), srcDst, staging, samples, output);
    std::memcpy(srcDst, staging, samples * sizeof *staging);
    srcDst += samples;
  }
}

template <class C>
MoxStatus runSingle(MoxsFIRState* state, const typename C::Data* src, typename C::Data* dst,
                    long len, int scaleFactor) {
  auto& s = stateOf<C>(state);
  const Output<C> output(s.tapsFactor, scaleFactor, blockRounding<C>());
  if (src == dst)
    filterInPlace<C>(s, dst, len, output);
  else
    filterBlock<C>(s, runsByFft<C>(s, len), src, dst, len, output);
  return moxOk;
}

}  // namespace mox::fir
