// References from MPFR. A program that uses them is linked with mpfr and gmp.
#pragma once

#include <mpfr.h>

#include <cmath>
#include <limits>

namespace test {

// A function of MPFR, such as mpfr_exp.
using ExactFunction = int (*)(mpfr_ptr result, mpfr_srcptr x, mpfr_rnd_t mode);

class Exact {
 public:
  explicit Exact(int bits = 200) {
    // Exponentials of 32-bit integers leave the exponents that MPFR starts with.
    [[maybe_unused]] static const int wide =
        mpfr_set_emin(mpfr_get_emin_min()) | mpfr_set_emax(mpfr_get_emax_max());
    mpfr_init2(value_, bits);
  }
  ~Exact() { mpfr_clear(value_); }
  Exact(const Exact&) = delete;
  Exact& operator=(const Exact&) = delete;

  mpfr_ptr get() { return value_; }

 private:
  mpfr_t value_;
};

// A value as F must have it: infinity where it rounds to that.
template <class F>
long double inRangeOf(long double exact) {
  return std::isinf(F(exact)) ? (long double)F(exact) : exact;
}

inline long double exactValue(ExactFunction function, long double x) {
  static Exact argument(64), result(113);
  mpfr_set_ld(argument.get(), x, MPFR_RNDN);
  function(result.get(), argument.get(), MPFR_RNDN);
  return mpfr_get_ld(result.get(), MPFR_RNDN);
}

// `value` times 2^-factor, to nearest with ties to even, saturated to T.
template <class T>
T scaledExactly(mpfr_srcptr value, long factor) {
  static Exact scaled(300);
  mpfr_div_2si(scaled.get(), value, factor, MPFR_RNDN);
  mpfr_rint(scaled.get(), scaled.get(), MPFR_RNDN);
  if (mpfr_cmp_si(scaled.get(), std::numeric_limits<T>::max()) >= 0)
    return std::numeric_limits<T>::max();
  if (mpfr_cmp_si(scaled.get(), std::numeric_limits<T>::min()) <= 0)
    return std::numeric_limits<T>::min();
  return T(mpfr_get_si(scaled.get(), MPFR_RNDN));
}

}  // namespace test
