// Conjugates.
#include <moxsp/complex.h>

#include <bit>
#include <limits>

#include "frame/in_place.h"
#include "frame/map.h"
#include "move/flip.h"

namespace mox::convert {
namespace {

// `value` in the lanes of imaginary parts, 0 in the others.
template <class T>
constexpr T inImaginaryParts(Lane<T> value) {
  return [=]<std::size_t... i>(std::index_sequence<i...>) {
    return T{(i % 2 ? value : Lane<T>(0))...};
  }
  (std::make_index_sequence<std::size_t(laneCount<T>)>());
}

// The conjugates of elements E in any carrier of their bits.
template <class E>
struct Conjugate {
  template <class T>
  [[gnu::always_inline]] T operator()(T elements) const {
    using F = Part<E>;
    constexpr int parts = sizeof(T) / sizeof(F);
    if constexpr (std::is_floating_point_v<F>) {
      using Words = V<BitsOf<F>, parts>;
      constexpr auto sign = BitsOf<F>(1) << (8 * sizeof(F) - 1);
      return std::bit_cast<T>(std::bit_cast<Words>(elements) ^ inImaginaryParts<Words>(sign));
    } else if constexpr (parts == 2) {
      auto z = std::bit_cast<E>(elements);
      z.im = z.im == std::numeric_limits<F>::min() ? std::numeric_limits<F>::max() : F(-z.im);
      return std::bit_cast<T>(z);
    } else if constexpr (sizeof(T) == vectorBytes) {
      const auto [low, high] = halves(V<Mox32s>(elements));
      return join<T>((*this)(low), (*this)(high));
    } else {
      using Words = V<F, parts>;  // -x is ~x + 1
      return T(
          addSaturated(Words(elements) ^ inImaginaryParts<Words>(-1), inImaginaryParts<Words>(1)));
    }
  }
};

template <class E>
MoxStatus conj(const E* src, E* dst, int len) {
  if (MoxStatus s = checkArrays(len, src, dst)) return s;
  mapElements<Stores::bypassing, registerBytes<Part<E>>>(Conjugate<E>(), dst, len, src);
  return moxOk;
}

template <class E>
MoxStatus conjFlip(const E* src, E* dst, int len) {
  if (MoxStatus s = checkArrays(len, src, dst)) return s;
  if (src == dst)
    move::reverseInPlace(dst, len, Conjugate<E>());
  else
    move::reverseCopy(src, dst, len, Conjugate<E>());
  return moxOk;
}

}  // namespace

MOX_EXPORT_BOTH(moxsConj_16sc, moxsConj_16sc_I, conj);
MOX_EXPORT_BOTH(moxsConj_32fc, moxsConj_32fc_I, conj);
MOX_EXPORT_BOTH(moxsConj_64fc, moxsConj_64fc_I, conj);
MOX_EXPORT(moxsConjFlip_16sc, conjFlip);
MOX_EXPORT(moxsConjFlip_32fc, conjFlip);
MOX_EXPORT(moxsConjFlip_64fc, conjFlip);

}  // namespace mox::convert
