// The rounding mode of the floating-point environment, for the length of a scope. A file that uses
// it is compiled with -frounding-math.
#pragma once

#include <immintrin.h>

#include <cmath>

namespace mox {

enum class Rounding : unsigned { nearEven = 0x0000, down = 0x2000, up = 0x4000, zero = 0x6000 };

enum class Traps { asTheyAre, masked };

// Changes the control word only when it must, and brings back what it changed alone, so that the
// exception flags which the scope raised stay raised.
class RoundingScope {
 public:
  explicit RoundingScope(Rounding mode, Traps traps = Traps::asTheyAre) : outer_(_mm_getcsr()) {
    const unsigned trapBits = traps == Traps::masked ? trapMask : outer_ & trapMask;
    const unsigned wanted = unsigned(mode) | trapBits;
    changed_ = wanted != (outer_ & (modeMask | trapMask));
    if (changed_) set(wanted);
  }
  ~RoundingScope() {
    if (changed_) set(outer_ & (modeMask | trapMask));
  }
  RoundingScope(const RoundingScope&) = delete;
  RoundingScope& operator=(const RoundingScope&) = delete;

 private:
  static constexpr unsigned modeMask = 0x6000, trapMask = 0x1F80;

  // Reads and writes of memory, and with them the arithmetic between, stay on their side of this.
  static void set(unsigned bits) {
    asm volatile("" ::: "memory");
    _mm_setcsr((_mm_getcsr() & ~(modeMask | trapMask)) | bits);
    asm volatile("" ::: "memory");
  }

  unsigned outer_;
  bool changed_;
};

// Whether the rounding mode in force is downward, by the sign of a difference of equals: unlike a
// read of the control word this doesn't wait for the arithmetic under way.
inline bool roundsDown() {
  float one = 1;
  asm volatile("" : "+x"(one));
  return std::signbit(one - one);
}

}  // namespace mox
