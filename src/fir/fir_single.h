// Blocks of samples at one rate: which engine runs, and in what chunks.
#pragma once

#include "fir/fir_state.h"
#include "fir/output.h"
#include "kernels/sliding_dot.h"
#include "kernels/wrapping_dot.h"

namespace mox::fir {

// The direct engine. `dst` may be `src`.
template <class C>
void filterDirectly(StateOf<C>& s, const typename C::Data* src, typename C::Data* dst, long len,
                    const Output<C>& output) {
  const auto sum = [&s](const typename C::Data* from, typename C::Sum* sums, long samples) {
    s.store.run(from, sums, samples, [&s](const auto* newest, typename C::Sum* to, long count) {
      kernels::filterWindow(newest - s.tapsLen + 1, to, count, s.heldTaps, s.tapsLen);
    });
  };
  if constexpr (converts<C>) {
    for (long done = 0, piece; done < len; done += piece) {
      piece = std::min<long>(pieceLen, len - done);
      sum(src + done, s.staging, piece);
      output(s.staging, dst + done, piece);
    }
  } else {
    sum(src, dst, len);
  }
}

// The FFT engine, on arrays that don't overlap.
template <class C>
void filterByFft(StateOf<C>& s, const typename C::Data* src, typename C::Data* dst, long len,
                 const Output<C>& output) {
  using Held = typename C::Held;
  std::copy_n(s.store.history() + 1, s.tapsLen - 1, s.fft.history());
  s.store.takeIn(src, len);
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
  return s.hasFft && len >= leastLenForFft<C>;
}

// In place, results go through `staging`, because samples are still read where they will lie. Where
// samples or results are converted, the whole length decides between the engines; else, for each
// chunk, the length that is left behind it. Returns the samples that this engine filters.
template <class C>
long filterChunksByFft(StateOf<C>& s, typename C::Data* srcDst, long len, const Output<C>& output) {
  constexpr long chunk = converts<C> ? 2 * chunkLen : chunkLen;
  static_assert(chunk * sizeof(typename C::Data) <= chunkLen * sizeof(typename C::Sum));
  auto* staging = reinterpret_cast<typename C::Data*>(s.staging);
  long done = 0;
  while (done < len && runsByFft<C>(s, converts<C> ? len : len - done - chunk)) {
    const long samples = std::min(len - done, chunk);
    filterByFft<C>(s, srcDst + done, staging, samples, output);
    std::memcpy(srcDst + done, staging, samples * sizeof *staging);
    done += samples;
  }
  return done;
}

template <class C>
MoxStatus runSingle(MoxsFIRState* state, const typename C::Data* src, typename C::Data* dst,
                    long len, int scaleFactor) {
  auto& s = stateOf<C>(state);
  const Output<C> output(s.tapsFactor, scaleFactor, blockRounding<C>());
  long byFft = 0;
  if constexpr (isFloating<C>) {
    if (src == dst)
      byFft = filterChunksByFft<C>(s, dst, len, output);
    else if (runsByFft<C>(s, len))
      filterByFft<C>(s, src, dst, byFft = len, output);
  }
  if (byFft < len) filterDirectly<C>(s, src + byFft, dst + byFft, len - byFft, output);
  return moxOk;
}

}  // namespace mox::fir
