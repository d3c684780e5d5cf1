// Rounding modes of the floating-point environment in tests.
#pragma once

#include <gtest/gtest.h>
#include <immintrin.h>

#include <cfenv>

namespace test {

constexpr int allRoundings[] = {FE_TONEAREST, FE_DOWNWARD, FE_UPWARD, FE_TOWARDZERO};

// Sets a rounding mode for its scope, and at the end of it expects the control word, all but the
// exception flags, to be what it was at the start.
class UnderRounding {
 public:
  explicit UnderRounding(int mode) : outer_(std::fegetround()) {
    std::fesetround(mode);
    word_ = control();
  }
  ~UnderRounding() {
    EXPECT_EQ(control(), word_) << "the control word has changed";
    std::fesetround(outer_);
  }
  UnderRounding(const UnderRounding&) = delete;
  UnderRounding& operator=(const UnderRounding&) = delete;

 private:
  static unsigned control() { return _mm_getcsr() & ~0x3Fu; }
  int outer_;
  unsigned word_;
};

// Lets every floating-point exception of the vector unit trap for its scope.
class UnmaskedExceptions {
 public:
  UnmaskedExceptions() : outer_(_mm_getcsr()) {
    _mm_setcsr(outer_ & ~(_MM_MASK_MASK | _MM_EXCEPT_MASK));
  }
  ~UnmaskedExceptions() {
    EXPECT_EQ(_mm_getcsr() & _MM_MASK_MASK, 0u) << "exceptions were masked";
    _mm_setcsr(outer_);
  }
  UnmaskedExceptions(const UnmaskedExceptions&) = delete;
  UnmaskedExceptions& operator=(const UnmaskedExceptions&) = delete;

 private:
  unsigned outer_;
};

}  // namespace test
