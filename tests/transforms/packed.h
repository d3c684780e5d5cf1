// The packed layouts of real spectra, place by place.
#pragma once

#include <complex>
#include <ostream>
#include <vector>

namespace test {

enum class Layout { perm, pack, ccs };

inline std::ostream& operator<<(std::ostream& out, Layout layout) {
  return out << (layout == Layout::perm ? "Perm" : layout == Layout::pack ? "Pack" : "CCS");
}

constexpr Layout layouts[] = {Layout::perm, Layout::pack, Layout::ccs};

inline long packedSize(Layout layout, long n) { return layout == Layout::ccs ? n / 2 * 2 + 2 : n; }

inline long realPlace(Layout layout, long n, long k) {
  if (layout == Layout::ccs) return 2 * k;
  if (k == 0) return 0;
  if (2 * k == n) return layout == Layout::perm ? 1 : n - 1;
  return layout == Layout::perm && n % 2 == 0 ? 2 * k : 2 * k - 1;
}

// Of R[0] and R[n/2] only the CCS layout keeps an imaginary part.
inline bool hasImaginaryPlace(Layout layout, long n, long k) {
  return layout == Layout::ccs || (k != 0 && 2 * k != n);
}

template <class F, class E>
std::vector<std::complex<F>> halfSpectrum(Layout layout, const E* packed, long n) {
  std::vector<std::complex<F>> half(n / 2 + 1);
  for (long k = 0; k <= n / 2; ++k) {
    const long place = realPlace(layout, n, k);
    half[k] = {F(packed[place]), hasImaginaryPlace(layout, n, k) ? F(packed[place + 1]) : F(0)};
  }
  return half;
}

template <class E, class F>
std::vector<E> packed(Layout layout, const std::vector<std::complex<F>>& half, long n) {
  std::vector<E> p(packedSize(layout, n));
  for (long k = 0; k <= n / 2; ++k) {
    const long place = realPlace(layout, n, k);
    p[place] = E(half[k].real());
    if (hasImaginaryPlace(layout, n, k)) p[place + 1] = E(half[k].imag());
  }
  return p;
}

}  // namespace test
