// References from MPFR. A program that uses them is linked with mpfr and gmp.
#pragma once

#include <mpfr.h>

#include <cmath>
#include <limits>

namespace test {

// A number of many bits, in the place of arguments of MPFR.
class Exact {
 public:
  Exact(long double x = 0, int bits = 200) {
    // Exponentials of 32-bit integers leave the exponents that MPFR starts with.
    [[maybe_unused]] static const int wide =
        mpfr_set_emin(mpfr_get_emin_min()) | mpfr_set_emax(mpfr_get_emax_max());
    mpfr_init2(value_, bits);
    mpfr_set_ld(value_, x, MPFR_RNDN);
  }
  ~Exact() { mpfr_clear(value_); }
  Exact(const Exact&) = delete;
  Exact& operator=(const Exact&) = delete;

  operator mpfr_ptr() { return value_; }
  operator mpfr_srcptr() const { return value_; }

 private:
  mpfr_t value_;
};

// The principal root of a + b i by its defining formula.
inline void exactRoot(mpfr_ptr re, mpfr_ptr im, double a, double b) {
  mpfr_hypot(re, Exact(a), Exact(b), MPFR_RNDN);
  mpfr_sub_d(im, re, a, MPFR_RNDN);
  mpfr_add_d(re, re, a, MPFR_RNDN);
  for (mpfr_ptr part : {re, im}) {
    mpfr_div_2ui(part, part, 1, MPFR_RNDN);
    mpfr_sqrt(part, part, MPFR_RNDN);
  }
  mpfr_setsign(im, im, std::signbit(b), MPFR_RNDN);
}

// `value` times 2^-factor, to nearest with ties to even, saturated to T.
template <class T>
T scaledExactly(mpfr_srcptr value, long factor) {
  static Exact scaled(0, 300);
  mpfr_div_2si(scaled, value, factor, MPFR_RNDN);
  mpfr_rint(scaled, scaled, MPFR_RNDN);
  if (mpfr_cmp_si(scaled, std::numeric_limits<T>::max()) >= 0) return std::numeric_limits<T>::max();
  if (mpfr_cmp_si(scaled, std::numeric_limits<T>::min()) <= 0) return std::numeric_limits<T>::min();
  return T(mpfr_get_si(scaled, MPFR_RNDN));
}

}  // namespace test
