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

}  // namespace test
