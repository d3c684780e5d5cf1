// The terms that reductions of floats add: see fold.h for how they are asked for.
#pragma once

#include <algorithm>
#include <array>

#include "frame/map.h"
#include "stats/fold.h"

namespace mox::stats {

// One number as T, or a vector of T from there on.
template <class T, class E>
[[gnu::always_inline]] inline T numberAt(const E* p) {
  if constexpr (std::is_arithmetic_v<T>)
    return T(load<E>(p));
  else
    return loadWidened<T>(p);
}

template <class T>
T difference(T x) {
  return x;
}
template <class T>
T difference(T a, T b) {
  return a - b;
}

// The terms, with their source at hand where there is only one: see fold.h.
template <class Terms, class E>
auto ofSources(const Terms& terms, const E* source) {
  return OneSource<Terms, E>{terms, source};
}
template <class Terms, class A, class B>
auto ofSources(const Terms& terms, const A*, const B*) {
  return terms;
}

// Parts of complex elements count as numbers of their own.
template <class... E>
auto numbersOf(const E*... src) {
  return [... p = parts(src)]<class T>(std::type_identity<T>, long i) {
    return difference(numberAt<T>(p + i)...);
  };
}

// op of one number of each source.
template <class Op, class... E>
auto termsOf(Op op, const E*... src) {
  const auto terms = [op, ... p = parts(src)]<class T>(std::type_identity<T>, long i) {
    return std::array{op(numberAt<T>(p + i)...)};
  };
  return ofSources(terms, parts(src)...);
}

}  // namespace mox::stats
