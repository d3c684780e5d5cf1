// Filters of 16-bit samples with 16-bit taps: a tap stands for the held one times 2^factor, and
// sums wrap around in 32 bits.
#pragma once

#include <climits>
#include <cmath>

#include "frame/elements.h"
#include "frame/rounding.h"

namespace mox::fir {

inline int saturatedSum(int a, int b) {
  return int(std::clamp<long>(long(a) + b, INT_MIN, INT_MAX));
}

// How a caller's taps become the held ones. It is made from all of them, as parts.
template <class E>
class TapScale {
 public:
  // Integers are shifted right until the largest magnitude is at most `limit`.
  TapScale(const E* taps, long count, int factor, unsigned limit) {
    unsigned largest = 0;
    for (long i = 0; i < count; ++i)
      largest = std::max<unsigned>(largest, magnitude(load<E>(taps + i)));
    for (; largest > limit; largest /= 2) ++shift_;
    factor_ = saturatedSum(factor, shift_);
  }

  int factor() const { return factor_; }
  Mox16s operator()(E tap) const { return Mox16s(tap >> shift_); }
  int shift() const { return shift_; }

 private:
  int shift_ = 0, factor_;
};

// Floats choose the power of two that brings the largest of them to at most 32767, and to at least
// half of that where 2^33 suffices.
template <>
class TapScale<Mox32f> {
 public:
  TapScale(const Mox32f* taps, long count) {
    Mox64f largest = 0;
    for (long i = 0; i < count; ++i)
      largest = greater(std::abs(Mox64f(load<Mox32f>(taps + i))), largest);
    if (largest > most) {
      for (; largest > most && factor_ < 33; largest *= 0.5) ++factor_;
    } else {
      for (; most > 2 * largest && factor_ >= -32; largest *= 2) --factor_;
    }
    scale_ = powerOfTwo<Mox64f>(-factor_);
  }

  int factor() const { return factor_; }
  // Rounded half away from zero.
  Mox16s operator()(Mox32f tap) const {
    const Mox64f scaled = scale_ * Mox64f(tap);
    return Mox16s(lesser(greater(scaled + (scaled >= 0 ? 0.5 : -0.5), -most), most));
  }

 private:
  static constexpr Mox64f most = 32767;
  int factor_ = 0;
  Mox64f scale_;
};

// A held tap as the caller's type: integers come without the factor, floats with it.
template <class E>
E callersTap(Mox16s held, int factor) {
  if constexpr (std::is_integral_v<E>) return held;
  const int power = int(magnitude(factor) & 127);
  return E(held) * powerOfTwo<Mox32f>(factor < 0 ? -power : power);
}

// What becomes of the bits that a shift to the right drops. Without a shift, sums stay as they are,
// except that `nearEvenOddUp` adds 1 to odd ones.
enum class SumRounding { down, nearEven, halfAway, nearEvenOddUp };

// dst = sums times 2^shift, saturated. The shift is taken as -31 to 31; one to the left may drop
// upper bits.
void shiftSums(const Mox32s* sums, Mox16s* dst, long len, long shift, SumRounding rounding);

}  // namespace mox::fir
