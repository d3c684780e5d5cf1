// The last samples of a stream, for filters that look back.
#pragma once

#include <algorithm>

#include "frame/arena.h"
#include "frame/vec/vec.h"

namespace mox::kernels {

// A piece no shorter than the history, so that moving that costs a sample at most one copy.
constexpr long pieceFor(long history) { return std::max(history, 1024L); }

// A delay line, which callers see newest first, is held oldest first with room behind it: a piece
// of new samples follows the ones before it, until the last ones move to the front again.
template <class E>
class DelayStore {
 public:
  constexpr void place(Arena& arena, long history, long pieceLen) {
    history_ = history;
    pieceLen_ = pieceLen;
    samples_ = arena.place<E>(std::size_t(history + pieceLen), vectorBytes);
  }
  constexpr void place(Arena& arena, long history) { place(arena, history, pieceFor(history)); }

  const E* history() const { return samples_; }
  // Where the samples of a piece go; those before them are the history.
  E* appended() const { return samples_ + history_; }
  // Ends a piece.
  void advance(long count) const {
    std::memmove(samples_, samples_ + count, std::size_t(history_) * sizeof(E));
  }
  void append(const E* src, long count) const {
    std::memcpy(appended(), src, std::size_t(count) * sizeof(E));
  }

  // Null stands for silence.
  void setLine(const E* line) const {
    for (long i = 0; i < history_; ++i) samples_[history_ - 1 - i] = line ? load<E>(line + i) : E{};
  }
  void getLine(E* line) const {
    for (long i = 0; i < history_; ++i) store(line + i, samples_[history_ - 1 - i]);
  }

  // Takes in samples that are filtered elsewhere.
  void takeIn(const E* src, long len) const {
    const long entering = std::min(len, history_);
    advance(entering);
    std::memcpy(samples_ + history_ - entering, src + len - entering,
                std::size_t(entering) * sizeof(E));
  }

  // Runs filter(newest, dst, count) over `len` samples: output i is made of newest[i] and the
  // samples before it. `dst` may be `src`, which is read where it lies once it holds the history.
  template <class Filter>
  void run(const E* src, E* dst, long len, Filter filter) const {
    const bool inPlace = src == dst;
    for (long done = 0; done < len;) {
      if (!inPlace && done >= history_) {
        filter(src + done, dst + done, len - done);
        return takeIn(src, len);
      }
      const long count = std::min(len - done, inPlace ? pieceLen_ : history_ - done);
      append(src + done, count);
      filter(appended(), dst + done, count);
      advance(count);
      done += count;
    }
  }

 private:
  long history_, pieceLen_;
  E* samples_;
};

}  // namespace mox::kernels
