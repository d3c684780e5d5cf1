// The DCT of 1, 2, 4 and 8 numbers: sums go to the even results, by the DCT of half the length, and
// differences to the odd ones.
#pragma once

#include "transforms/complex_vector.h"

namespace mox::transforms {
namespace detail {

constexpr double rootOfHalf = 0.70710678118654752;

// cos(pi m / 16)
constexpr double cosineOfSixteenths(int m) {
  constexpr double cosines[] = {
      1,          0.98078528040323045, 0.92387953251128676, 0.83146961230254524,
      rootOfHalf, 0.55557023301960222, 0.38268343236508977, 0.19509032201612827,
      0};
  m %= 32;
  if (m > 16) m = 32 - m;
  return m > 8 ? -cosines[16 - m] : cosines[m];
}

// The matrix from differences to odd results, which is symmetric.
template <class F, int n>
struct OddCosines {
  static constexpr int half = n / 2;
  F at[half][half];

  constexpr OddCosines() : at{} {
    constexpr double factor = n == 2 ? 1 : n == 4 ? rootOfHalf : 0.5;  // sqrt(2 / n)
    for (int k = 0; k < half; ++k)
      for (int i = 0; i < half; ++i)
        at[k][i] = F(factor * cosineOfSixteenths((2 * k + 1) * (2 * i + 1) * (8 / n)));
  }
  F product(int k, const F* v) const {
    F sum = at[k][0] * v[0];
    for (int i = 1; i < half; ++i) sum += at[k][i] * v[i];
    return sum;
  }
};

// In place.
template <Direction d, int n, class F>
[[gnu::always_inline]] inline void smallDct(F* x) {
  if constexpr (n > 1) {
    constexpr int half = n / 2;
    static constexpr OddCosines<F, n> cosines;
    F even[half], odd[half];
    if constexpr (d == Direction::forward) {
      for (int i = 0; i < half; ++i) even[i] = x[i] + x[n - 1 - i], odd[i] = x[i] - x[n - 1 - i];
      smallDct<d, half>(even);
      for (int k = 0; k < half; ++k) {
        x[2 * k] = even[k] * F(rootOfHalf);
        x[2 * k + 1] = cosines.product(k, odd);
      }
    } else {
      for (int k = 0; k < half; ++k) even[k] = x[2 * k] * F(rootOfHalf), odd[k] = x[2 * k + 1];
      smallDct<d, half>(even);
      for (int i = 0; i < half; ++i) {
        const F difference = cosines.product(i, odd);
        x[i] = even[i] + difference, x[n - 1 - i] = even[i] - difference;
      }
    }
  }
}

}  // namespace detail

// `dst` may be `src`.
template <Direction d, int n, class F>
void ownDctSmall(const F* src, F* dst) {
  F x[n];
  for (int i = 0; i < n; ++i) x[i] = load<F>(src + i);
  detail::smallDct<d, n>(x);
  for (int i = 0; i < n; ++i) store(dst + i, x[i]);
}

}  // namespace mox::transforms
