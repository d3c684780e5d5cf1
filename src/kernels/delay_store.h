// The last samples of a stream, for filters that look back.
#pragma once

#include <algorithm>

#include "convert/samples.h"
#include "frame/arena.h"
#include "kernels/ring.h"

namespace mox::kernels {

// Samples of a piece: no fewer than the history has, so that moving the history costs at most one
// copy per sample.
constexpr long pieceFor(long history) { return std::max(history, 1024L); }

// A delay line. Callers see it newest first; here it is held oldest first, with room behind it for
// a piece of new samples, the last of which move to the front afterwards. push() uses the same
// memory as a ring.
template <class E>
class DelayStore {
 public:
  constexpr void place(Arena& arena, long history, long pieceLen) {
    history_ = history;
    pieceLen_ = pieceLen;
    const long room = std::max(wholeVectors(history), pieceLen);
    samples_ = arena.place<E>(std::size_t(history + room), 2 * vectorBytes);
  }
  constexpr void place(Arena& arena, long history) { place(arena, history, pieceFor(history)); }

  const E* history() const { return samples_ + place_; }
  // Takes in a sample and returns the window that ends with it.
  const E* push(E sample) { return pushSample(samples_, place_, int(history_), sample); }

  // For filters that go piece by piece and never push(): where the samples of a piece go, behind
  // the history.
  E* appended() const { return samples_ + history_; }
  template <class S>
  void append(const S* src, long count) const {
    convert::takeIn(src, appended(), count);
  }
  void advance(long count) const {
    std::memmove(samples_, samples_ + count, std::size_t(history_) * sizeof(E));
  }

  // Null stands for silence.
  template <class S>
  void setLine(const S* line) {
    place_ = 0;
    for (long i = 0; i < history_; ++i)
      samples_[history_ - 1 - i] = line ? convert::converted<E>(load<S>(line + i)) : E{};
  }
  template <class S>
  void getLine(S* line) const {
    for (long i = 0; i < history_; ++i)
      store(line + i, convert::converted<S>(history()[history_ - 1 - i]));
  }

  // Takes in samples that are filtered elsewhere.
  template <class S>
  void takeIn(const S* src, long len) {
    const long entering = std::min(len, history_), kept = history_ - entering;
    std::memmove(samples_, history() + entering, std::size_t(kept) * sizeof(E));
    convert::takeIn(src + len - entering, samples_ + kept, entering);
    place_ = 0;
  }

  // Runs filter(newest, dst, count) over `len` samples: output i is made of newest[i] and the
  // samples before it. Samples of the type that is held are read where they lie once they hold the
  // history, unless `dst` is `src`.
  template <class S, class D, class Filter>
  void run(const S* src, D* dst, long len, Filter filter) {
    if (place_ > 0) std::memmove(samples_, history(), std::size_t(history_) * sizeof(E));
    place_ = 0;
    if constexpr (std::is_same_v<S, E>)
      if (const long first = wholeVectors(history_);
          static_cast<const void*>(src) != dst && len > first) {
        append(src, first);
        filter(appended(), dst, first);
        filter(src + first, dst + first, len - first);
        std::memcpy(samples_, src + len - history_, std::size_t(history_) * sizeof(E));
        return;
      }
    for (long done = 0, count; done < len; done += count) {
      count = std::min(len - done, pieceLen_);
      append(src + done, count);
      filter(appended(), dst + done, count);
      advance(count);
    }
  }

 private:
  static constexpr long wholeVectors(long count) {
    return long(roundUp(std::size_t(count), vectorBytes / sizeof(E)));
  }

  long history_, pieceLen_;
  E* samples_;
  int place_;  // of the oldest sample
};

}  // namespace mox::kernels
