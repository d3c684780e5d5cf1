// Sums by transforms: of the whole of both signals, or of the longer one section by section.
#pragma once

#include <bit>
#include <climits>

#include "corr/sliding_sum.h"
#include "transforms/overlap_save.h"

namespace mox::corr {

struct FftPlan {
  int order;
  bool inSections;
};
constexpr int leastOrder(long samples, int least) {
  return std::max(int(std::bit_width(std::uint64_t(samples - 1))), least);
}
// Sections overlap by the taps less one, which a transform is at least 4 times as long as.
constexpr FftPlan fftPlan(long len1, long len2, int least, bool mayCut = true) {
  const long shorter = std::min(len1, len2);
  if (mayCut && std::max(len1, len2) >= 3 * shorter) return {leastOrder(2 * shorter, 1) + 1, true};
  return {leastOrder(len1 + len2 - 1, least), false};
}

// The bytes that size queries report for the transform and `arrays` arrays of its length; -1 where
// there is no such transform, or no int holds the figure.
template <class E>
constexpr long fftFigure(int order, int arrays) {
  using Fft = transforms::InnerFft<E>;
  if (order > Fft::mostOrder) return -1;
  const long storage = long(arrays * sizeof(E)) << order;
  const long bytes = Fft::figure(order) + transforms::wholeLines(storage) + WorkBuffer::alignment;
  return bytes <= INT_MAX ? bytes : -1;
}

// Whether the figures hold what place(arena, E(), order) places.
template <class Place>
constexpr bool figuresSuffice(int arrays, Place place) {
  const auto sufficeFor = [&]<class E>(E e) {
    for (int order = 1; fftFigure<E>(order, arrays) > 0; ++order) {
      Arena arena;
      place(arena, e, order);
      if (long(arena.used()) + WorkBuffer::alignment - 1 > fftFigure<E>(order, arrays))
        return false;
    }
    return true;
  };
  return sufficeFor(Mox32f()) && sufficeFor(Mox32fc()) && sufficeFor(Mox64f()) &&
         sufficeFor(Mox64fc());
}

template <class E>
constexpr int dataTypeOf = std::is_same_v<E, Mox32f>    ? moxType32f
                           : std::is_same_v<E, Mox32fc> ? moxType32fc
                           : std::is_same_v<E, Mox64f>  ? moxType64f
                                                        : moxType64fc;

// The answer of a size query that offers the types E: figure(E()), a number of bytes, or -1 as
// above.
template <class... E, class Figure>
MoxStatus reportSize(int dataType, int* bufferSize, Figure figure) {
  long bytes = 0;
  if (!((dataType == dataTypeOf<E> && (bytes = figure(E()), true)) || ...)) return moxErrDataType;
  if (bytes < 0) return moxErrFftOrder;
  store(bufferSize, int(bytes));
  return moxOk;
}

// Runs body(arena) over such a buffer, which is the caller's, or taken for the scope of the call.
template <class E, class Body>
MoxStatus inFftBuffer(int order, int arrays, Mox8u* buffer, Body body) {
  const long bytes = fftFigure<E>(order, arrays);
  if (bytes < 0) return moxErrFftOrder;
  const WorkBuffer work(buffer, bytes);
  if (work.failed()) return moxErrMemAlloc;
  body(Arena(work.as<void>()));
  return moxOk;
}

// Sums take the spectrum of the taps, and samples.
constexpr int sumArrays = 2;
static_assert(figuresSuffice(sumArrays, []<class E>(Arena& arena, E, int order) {
  transforms::OverlapSave<E>{}.place(arena, 0, order);
}));

// Hands give(results, i, n) the outputs from i on, of which there are `count` in all.
template <class E, class Give>
void sumByFft(const SlidingSum<E>& sum, FftPlan plan, Arena arena, long count, Give give) {
  const long history = plan.inSections ? sum.tapsLen - 1 : 0;
  transforms::OverlapSave<E> fft{};
  fft.place(arena, history, plan.order);
  fft.fill();
  fft.setTaps(sum.tapsLen, [&](long k) { return sum.tap(sum.tapsLen - 1 - k); });

  // The newest sample of output 0. A single transform makes the outputs before that as well.
  const long newest = sum.first + sum.tapsLen - 1;
  const long start = plan.inSections ? newest : 0, skipped = newest - start;
  sum.take(start - history, history, fft.history());
  fft.run(
      skipped + count, [&](long i, long n, E* to) { sum.take(start + i, n, to); },
      [&](long i) {
        const bool isWhole = start + i >= 0 && start + i + (1L << plan.order) <= sum.len;
        return isWhole ? sum.x + start + i : nullptr;
      },
      [&](const E* results, long i, long n) { give(results + skipped, i, n - skipped); });
}

}  // namespace mox::corr
