// The rounding mode of the floating-point environment, for the length of a scope. A file that uses
// it is compiled with -frounding-math.
#pragma once

#include <immintrin.h>

namespace mox {

enum class Rounding : unsigned { nearEven = 0x0000, down = 0x2000, up = 0x4000, zero = 0x6000 };

// Changes the control word only when another mode is in force, and brings back the mode alone, so
// that the exception flags which the scope raised stay raised.
class RoundingScope {
 public:
  explicit RoundingScope(Rounding mode) : outer_(control() & mask) {
    if (unsigned(mode) != outer_) set(unsigned(mode)), changed_ = true;
  }
  ~RoundingScope() {
    if (changed_) set(outer_);
  }
  RoundingScope(const RoundingScope&) = delete;
  RoundingScope& operator=(const RoundingScope&) = delete;

 private:
  static constexpr unsigned mask = 0x6000;

  static unsigned control() { return _mm_getcsr(); }
  // Reads and writes of memory, and with them the arithmetic between, stay on their side of this.
  static void set(unsigned mode) {
    asm volatile("" ::: "memory");
    _mm_setcsr((control() & ~mask) | mode);
    asm volatile("" ::: "memory");
  }

  unsigned outer_;
  bool changed_ = false;
};

}  // namespace mox
