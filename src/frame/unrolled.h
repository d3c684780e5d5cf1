// A loop whose index is a constant in every round.
#pragma once

#include <utility>

namespace mox {

// body(0), body(1) ... body(count - 1), each index a constant of its type.
template <int count, class Body>
[[gnu::always_inline]] inline void unrolled(Body body) {
  [&]<int... i>(std::integer_sequence<int, i...>) __attribute__((always_inline)) {
    (body(std::integral_constant<int, i>()), ...);
  }
  (std::make_integer_sequence<int, count>());
}

}  // namespace mox
