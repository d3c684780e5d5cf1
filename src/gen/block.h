// The step in which windows and generators go: sixteen numbers in registers.
#pragma once

#include "frame/elements.h"
#include "frame/rounding_control.h"
#include "frame/vec/vec.h"

namespace mox::gen {

constexpr int blockLen = 16;

// The format that goes with an element type: of weights and of parameters.
template <class E>
using FloatOf = std::conditional_t<std::is_same_v<Part<E>, Mox64f>, Mox64f, Mox32f>;

template <class F>
struct Block {
  static constexpr int vectors = blockLen / lanesOf<F>;
  V<F> v[vectors];
};

// make(j) gives vector j.
template <class F, class Make>
[[gnu::always_inline]] inline Block<F> blockOf(Make make) {
  Block<F> b;
  for (int j = 0; j < Block<F>::vectors; ++j) b.v[j] = make(j);
  return b;
}

// The same numbers in another format.
template <class To, class From>
[[gnu::always_inline]] inline Block<To> inFormat(const Block<From>& b) {
  if constexpr (std::is_same_v<To, From>)
    return b;
  else
    return blockOf<To>([&](int j) {
      using Half = Beside<Mox32f, V<Mox64f>>;
      return join<V<Mox32f>>(__builtin_convertvector(b.v[2 * j], Half),
                             __builtin_convertvector(b.v[2 * j + 1], Half));
    });
}

template <class F>
[[gnu::always_inline]] inline Block<F> reversed(const Block<F>& b) {
  return blockOf<F>([&](int j) {
    return shuffle<[](int i) { return lanesOf<F> - 1 - i; }>(b.v[Block<F>::vectors - 1 - j]);
  });
}

// Integer results are the same in every rounding mode, and raise no exception; floats follow the
// mode in force.
struct NearestScope : RoundingScope {
  NearestScope() : RoundingScope(Rounding::nearEven, Exceptions::hidden) {}
};
struct NoScope {
  NoScope() {}
};
template <class E>
using ResultScope = std::conditional_t<std::is_integral_v<Part<E>>, NearestScope, NoScope>;

}  // namespace mox::gen
