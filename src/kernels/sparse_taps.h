// The taps of a sparse filter in its state.
#pragma once

#include <algorithm>

#include "frame/arena.h"
#include "frame/vec/vec.h"
#include "kernels/sparse_sum.h"

namespace mox::kernels {

// Whether positions rise strictly from one that is not below `least`.
inline bool areRising(const int* positions, long count, int least) {
  long last = least - 1L;
  for (long k = 0; k < count; ++k) {
    const int position = load<int>(positions + k);
    if (position <= last) return false;
    last = position;
  }
  return true;
}

// Room for taps, whose owner copies the caller's there.
class HeldSparseTaps {
 public:
  constexpr void place(Arena& arena, long count) {
    count_ = count;
    values_ = arena.place<Mox32f>(std::size_t(count));
    positions_ = arena.place<int>(std::size_t(count));
  }
  void set(const Mox32f* values, const int* positions) const {
    std::memcpy(values_, values, std::size_t(count_) * sizeof *values);
    std::memcpy(positions_, positions, std::size_t(count_) * sizeof *positions);
  }
  void negate() const {
    std::transform(values_, values_ + count_, values_, [](Mox32f tap) { return -tap; });
  }

  operator SparseTaps() const { return {values_, positions_, count_}; }
  int firstPosition() const { return positions_[0]; }

 private:
  long count_;
  Mox32f* values_;
  int* positions_;
};

}  // namespace mox::kernels
