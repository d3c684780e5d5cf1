// The core of the random generators: the sum of a linear congruential sequence and one of lagged
// differences with a borrow (Marsaglia and Zaman, Some portable very-long-period random number
// generators, 1994).
#pragma once

#include <cstring>

#include "gen/block.h"

namespace mox::gen {

namespace detail {

constexpr Mox32u congruential(Mox32u x) { return x * 69069 + 1013904243; }

// Of the congruential sequence x is followed by x * factor[i] + sum[i] after i + 1 steps.
struct Ahead {
  Mox32u factor[blockLen], sum[blockLen];
};
constexpr Ahead ahead = [] {
  Ahead a = {};
  for (Mox32u i = 0, f = 1, s = 0; i < blockLen; ++i)
    a.factor[i] = f *= 69069, a.sum[i] = s = congruential(s);
  return a;
}();

}  // namespace detail

class RandomSequence {
 public:
  RandomSequence() = default;
  explicit RandomSequence(Mox32u seed)
      : a_(seed), b_(detail::congruential(a_)), c_(detail::congruential(b_)) {}

  Mox32u newest() const { return a_; }

  Mox32s next() {
    Mox32u n[1];
    takeDifferences(n);
    lcg_ = detail::congruential(lcg_);
    return Mox32s(n[0] + lcg_);
  }

  // The next sixteen at once, in vectors that go with those of doubles.
  using Vector = Beside<Mox32s, V<Mox64f>>;
  static constexpr int vectors = blockLen / laneCount<Vector>;
  [[gnu::always_inline]] void nextBlock(Vector (&u)[vectors]) {
    using Four = V<Mox32u, 4>;
    Mox32u n[blockLen];
    takeDifferences(n);
    Registers<Four, blockLen / 4> r;
    for (int j = 0; j < blockLen; j += 4) {
      const auto lcg =
          load<Four>(&detail::ahead.factor[j]) * lcg_ + load<Four>(&detail::ahead.sum[j]);
      r.of[j / 4] = Four{n[j], n[j + 1], n[j + 2], n[j + 3]} + lcg;
    }
    std::memcpy(u, &r, sizeof u);
    lcg_ = lcg_ * detail::ahead.factor[blockLen - 1] + detail::ahead.sum[blockLen - 1];
  }

 private:
  // The next differences. What borrows take from a and b is held apart from them and added last, so
  // that a difference waits for the borrow of the one before it and for nothing else.
  template <int count>
  [[gnu::always_inline]] void takeDifferences(Mox32u (&differences)[count]) {
    Mox32u belowA = 0, belowB = 0;
    for (Mox32u& n : differences) {
      const Mox32u t = b_ - c_ + belowB + Mox32u(carry_);
      c_ = b_ + belowB;
      b_ = a_, belowB = belowA;
      a_ = t, carry_ = Mox32s(t) >> 31, belowA = Mox32u(carry_) & Mox32u(-18);
      n = a_ + belowA;
    }
    a_ += belowA, b_ += belowB;
  }

  Mox32u lcg_ = 1131199209, a_ = 0, b_ = 0, c_ = 0;  // the newest of the differences is a
  Mox32s carry_ = -1;
};

}  // namespace mox::gen
