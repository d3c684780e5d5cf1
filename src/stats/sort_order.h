// The directions of the sorts: what must stand before what. For scalars and, lane by lane, vectors.
#pragma once

namespace mox {

struct Ascending {
  static constexpr auto before(auto a, auto b) { return a < b; }
  static constexpr auto notAfter(auto a, auto b) { return a <= b; }
};

struct Descending {
  static constexpr auto before(auto a, auto b) { return a > b; }
  static constexpr auto notAfter(auto a, auto b) { return a >= b; }
};

}  // namespace mox
