// The packed layouts of real spectra, place by place.
#pragma once

#include <ostream>

namespace test {

enum class Layout { perm, pack, ccs, complex };

inline std::ostream& operator<<(std::ostream& out, Layout layout) {
  return out << (layout == Layout::perm ? "Perm" : layout == Layout::pack ? "Pack" : "CCS");
}

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

}  // namespace test
