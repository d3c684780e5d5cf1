// Filters by transforms. A transform of N samples gives N - n + 1 outputs of a filter with n taps;
// the n - 1 samples before each stretch of input, its history, are transformed with it. Where all
// samples and n - 1 zeros fit into one transform, no history is needed.
#pragma once

#include <algorithm>

#include "transforms/inner_fft.h"

namespace mox::transforms {

// A member of the record of the object that filters, and its parts are among the parts of that
// object.
template <class E>
class OverlapSave {
 public:
  // `history` is one less than the taps, or 0 for a single transform.
  constexpr void place(Arena& arena, long history, int order) {
    history_ = history;
    size_ = 1L << order;
    order_ = order;
    taps_ = arena.place<E>(std::size_t(size_), fftAlignment);
    work_ = arena.place<E>(InnerFft<E>::roomElements(order), fftAlignment);
    fft_.place(arena, order);
  }
  // Moves what run() writes to: copies with work memory of their own run at the same time.
  constexpr void placeWork(Arena& arena) {
    work_ = arena.place<E>(std::size_t(size_), fftAlignment);
    fft_.placeWork(arena, order_);
  }
  // Builds the transform.
  void fill() { fft_.fill(order_, work_); }

  // The spectrum of the taps; tap(0) goes with the newest sample.
  template <class Tap>
  void setTaps(long tapsLen, Tap tap) {
    for (long i = 0; i < tapsLen; ++i) taps_[i] = tap(i);
    std::fill(taps_ + tapsLen, taps_ + size_, E{});
    fft_.forward(taps_, taps_);
  }

  // Outputs of one transform.
  long outputs() const { return size_ - history_; }

  // To be filled with the samples before the first one of run(), the oldest first.
  E* history() { return work_; }

  // Filters `len` samples behind the history. take(i, count, to) writes samples from i on to an
  // array; give(results, i, count) is handed results. wholeAt(i) is where samples from i on lie as
  // elements E in the caller's memory, or null.
  template <class Take, class WholeAt, class Give>
  void run(long len, Take take, WholeAt wholeAt, Give give) {
    E* const results = work_ + history_;
    const long first = std::min(len, outputs());
    take(0, first, results);
    std::fill(results + first, work_ + size_, E{});
    filter(work_);
    give(results, 0, first);
    for (long done = first; done < len; done += outputs()) {
      const long from = done - history_, samples = std::min(len - from, size_);
      const E* whole = samples == size_ ? wholeAt(from) : nullptr;
      if (!whole) {
        take(from, samples, work_);
        std::fill(work_ + samples, work_ + size_, E{});
      }
      filter(whole ? whole : work_);
      give(results, done, std::min(len - done, outputs()));
    }
  }

 private:
  // work_ = samples filtered circularly.
  void filter(const E* samples) {
    fft_.forward(samples, work_);
    fft_.multiply(taps_, work_);
    fft_.inverse(work_, work_);
  }

  long history_, size_;
  int order_;
  E *taps_, *work_;
  InnerFft<E> fft_;
};

}  // namespace mox::transforms
