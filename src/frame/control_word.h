// The caller's floating-point control word, put back at the end of a scope that changed it.
#pragma once

#include <immintrin.h>

namespace mox {

enum class Exceptions {
  raised,  // as the caller has them
  masked,  // no trap is taken; flags stay
  hidden,  // no trap is taken, and flags are as they were before
};

constexpr unsigned modeMask = 0x6000;  // of the rounding mode

inline bool roundsToNearest() { return (_mm_getcsr() & modeMask) == 0; }

class ControlScope {
 public:
  ControlScope(const ControlScope&) = delete;
  ControlScope& operator=(const ControlScope&) = delete;

 protected:
  static constexpr unsigned modeInForce = ~0u;

  // A read of the word waits for arithmetic under way: there is one, and another only to keep
  // flags.
  ControlScope(unsigned mode, Exceptions exceptions)
      : outer_(_mm_getcsr()), hides_(exceptions == Exceptions::hidden) {
    unsigned inner = mode == modeInForce ? outer_ : (outer_ & ~modeMask) | mode;
    if (exceptions != Exceptions::raised) inner |= trapMask;
    changed_ = inner != outer_;
    if (changed_) set(inner);
  }
  ~ControlScope() {
    if (hides_)
      set(outer_);
    else if (changed_)
      set((outer_ & ~flagMask) | (_mm_getcsr() & flagMask));
  }

 private:
  static constexpr unsigned trapMask = 0x1F80, flagMask = 0x003F;

  // Reads and writes of memory, and with them the arithmetic between, stay on their side of this.
  static void set(unsigned word) {
    asm volatile("" ::: "memory");
    _mm_setcsr(word);
    asm volatile("" ::: "memory");
  }

  unsigned outer_;
  bool hides_, changed_;
};

// For functions with integer results: how they are computed is not seen.
class HiddenExceptions : ControlScope {
 public:
  HiddenExceptions() : ControlScope(modeInForce, Exceptions::hidden) {}

  // The same integer, computed before the scope ends even where it is not stored there.
  template <class E>
  E settled(E e) const {
    asm volatile("" : "+r"(e));
    return e;
  }
};
class MaskedExceptions : ControlScope {
 public:
  MaskedExceptions() : ControlScope(modeInForce, Exceptions::masked) {}
};

}  // namespace mox
