// The directions of the sorts: what must stand before what. For scalars and, lane by lane, vectors.
#pragma once

#include "frame/vec/vec.h"

namespace mox::stats {

struct Ascending {
  static constexpr auto before(auto a, auto b) { return a < b; }
  static constexpr auto notAfter(auto a, auto b) { return a <= b; }

  // The two in order; as they are where they are equal or one is NaN.
  template <class T>
  static T first(T a, T b) {
    return lesser(b, a);
  }
  template <class T>
  static T second(T a, T b) {
    return greater(a, b);
  }
};

struct Descending {
  static constexpr auto before(auto a, auto b) { return a > b; }
  static constexpr auto notAfter(auto a, auto b) { return a >= b; }

  template <class T>
  static T first(T a, T b) {
    return greater(b, a);
  }
  template <class T>
  static T second(T a, T b) {
    return lesser(a, b);
  }
};

}  // namespace mox::stats
