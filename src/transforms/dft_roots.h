// Roots of unity for tables of transforms of any length, to be computed in the nearest rounding
// mode.
#pragma once

#include <cmath>

#include "transforms/turn.h"

namespace mox::transforms {
namespace detail {

// exp(-i pi / 4 * eighths / n) for 0 <= eighths <= 4 n, from angles of at most an eighth of a turn.
inline Twiddle<Mox64f> rootOfEighths(long eighths, long n) {
  if (eighths > 2 * n) {
    const auto before = rootOfEighths(eighths - 2 * n, n);  // a quarter turn back: times -i
    return {before.im, -before.re};
  }
  if (eighths > n) {
    const auto mirrored = rootOfEighths(2 * n - eighths, n);
    return {-mirrored.im, -mirrored.re};
  }
  const Mox64f angle = 0.78539816339744830962 * Mox64f(eighths) / Mox64f(n);
  return {std::cos(angle), -std::sin(angle)};
}

}  // namespace detail

// exp(-2 pi i k / n) for 0 <= k < n. As few as possible take a sine and a cosine, the others follow
// by symmetry.
template <class F>
class Roots {
 public:
  Roots(Twiddle<F>* table, long n) : at_(table), n_(n) {
    const long computed = n % 4 == 0 ? n / 8 : n % 2 == 0 ? n / 4 : n / 2;
    for (long k = 0; k <= computed; ++k) {
      const auto root = detail::rootOfEighths(8 * k, n);
      at_[k] = {F(root.re), F(root.im)};
    }
    if (n % 4 == 0)
      for (long k = n / 8 + 1; k <= n / 4; ++k) at_[k] = {-at_[n / 4 - k].im, -at_[n / 4 - k].re};
    if (n % 2 == 0)
      for (long k = n / 4 + 1; k <= n / 2; ++k) at_[k] = {-at_[n / 2 - k].re, at_[n / 2 - k].im};
    for (long k = n / 2 + 1; k < n; ++k) at_[k] = {at_[n - k].re, -at_[n - k].im};
  }

  // exp(-2 pi i k / length), where length divides n.
  Twiddle<F> of(long k, long length) const { return at_[k % length * (n_ / length)]; }

 private:
  Twiddle<F>* at_;
  long n_;
};

}  // namespace mox::transforms
