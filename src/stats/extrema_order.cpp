// The order of magnitude of a vector.
#include <moxsp/extrema.h>

#include <bit>
#include <limits>

#include "frame/elements.h"
#include "frame/export.h"
#include "stats/extrema_scan.h"

namespace mox::stats {
namespace {

struct Magnitude {
  auto operator()(auto x) const { return magnitude(x); }
};

// Floats are scanned by their bits, which are in the order of the magnitudes when the sign is
// cleared, and in which infinities and NaN stand above all numbers.
template <class F>
struct Format {
  using Bits = std::make_signed_t<BitsOf<F>>;
  using Number = std::numeric_limits<F>;

  static constexpr Bits infinity = std::bit_cast<Bits>(Number::infinity());
  static constexpr int fractionBits = Number::digits - 1;

  struct WithoutSign {
    template <class T>
    T operator()(T bits) const {
      return bits & std::numeric_limits<Bits>::max();
    }
  };
  struct FiniteMagnitude {
    template <class T>
    T operator()(T bits) const {
      const T m = WithoutSign()(bits);
      return m < infinity ? m : T{};
    }
  };

  static int order(Bits m) {
    return m == 0 ? 0 : int(m >> fractionBits) - (Number::max_exponent - 2);
  }
};

template <class Key, class E>
auto largest(const E* src, int len) {
  return scan<coarseBlock, Key, Larger>(src, len)[0].key;
}

template <class E>
MoxStatus orderOf(const E* src, int len, int* order) {
  if constexpr (std::is_integral_v<E>) {
    store(order, int(std::bit_width(largest<Magnitude>(src, len))));
    return moxOk;
  } else {
    using F = Format<E>;
    const auto* bits = reinterpret_cast<const typename F::Bits*>(src);
    const auto m = largest<typename F::WithoutSign>(bits, len);
    const bool finite = m < F::infinity;
    store(order, F::order(finite ? m : largest<typename F::FiniteMagnitude>(bits, len)));
    return finite ? moxOk : moxWarnNaNFound;
  }
}

template <class E>
MoxStatus maxOrder(const E* src, int len, int* order) {
  if (MoxStatus s = checkLength(len)) return s;
  if (MoxStatus s = checkArrays(len, src, order)) return s;
  return orderOf(src, len, order);
}

}  // namespace

MOX_EXPORT(moxsMaxOrder_16s, maxOrder);
MOX_EXPORT(moxsMaxOrder_32f, maxOrder);
MOX_EXPORT(moxsMaxOrder_32s, maxOrder);
MOX_EXPORT(moxsMaxOrder_64f, maxOrder);

}  // namespace mox::stats
