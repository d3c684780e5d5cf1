// Conjugates of complex elements, as the operation that drivers of movement apply.
#pragma once

#include <bit>
#include <limits>

#include "frame/elements.h"
#include "frame/vec/vec.h"

namespace mox::convert {
namespace detail {

// `value` in the lanes of imaginary parts, 0 in the others.
template <class T>
constexpr T inImaginaryParts(Lane<T> value) {
  return [=]<std::size_t... i>(std::index_sequence<i...>) {
    return T{(i % 2 ? value : Lane<T>(0))...};
  }
  (std::make_index_sequence<std::size_t(laneCount<T>)>());
}

}  // namespace detail

// The conjugates of elements E in any carrier of their bits; real elements are their own.
template <class E>
struct Conjugate {
  template <class T>
  [[gnu::always_inline]] T operator()(T elements) const {
    using F = Part<E>;
    constexpr int parts = sizeof(T) / sizeof(F);
    if constexpr (!Complex<E>) {
      return elements;
    } else if constexpr (std::is_floating_point_v<F>) {
      using Words = V<BitsOf<F>, parts>;
      constexpr auto sign = BitsOf<F>(1) << (8 * sizeof(F) - 1);
      return std::bit_cast<T>(std::bit_cast<Words>(elements) ^
                              detail::inImaginaryParts<Words>(sign));
    } else if constexpr (parts == 2) {
      auto z = std::bit_cast<E>(elements);
      z.im = z.im == std::numeric_limits<F>::min() ? std::numeric_limits<F>::max() : F(-z.im);
      return std::bit_cast<T>(z);
    } else {
      return T(inIntegers(V<F, parts>(elements), []<class Words>(Words z) {
        return addSaturated(z ^ detail::inImaginaryParts<Words>(-1),  // -x is ~x + 1
                            detail::inImaginaryParts<Words>(1));
      }));
    }
  }
};

}  // namespace mox::convert
