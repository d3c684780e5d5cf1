// The rounding mode of the floating-point environment, for the length of a scope. A file that uses
// it is compiled with -frounding-math.
#pragma once

#include <cmath>

#include "frame/control_word.h"

namespace mox {

enum class Rounding : unsigned { nearEven = 0x0000, down = 0x2000, up = 0x4000, zero = 0x6000 };

class RoundingScope : ControlScope {
 public:
  explicit RoundingScope(Rounding mode, Exceptions exceptions = Exceptions::raised)
      : ControlScope(unsigned(mode), exceptions) {}
};

// Whether the rounding mode in force is downward, by the sign of a difference of equals: unlike a
// read of the control word this doesn't wait for the arithmetic under way.
inline bool roundsDown() {
  float one = 1;
  asm volatile("" : "+x"(one));
  return std::signbit(one - one);
}

}  // namespace mox
