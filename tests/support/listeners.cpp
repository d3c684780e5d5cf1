// What all test programs do about failures.
#include <gtest/gtest.h>

#include <cstdio>

#include "support/random.h"

namespace {

// A failed assertion ends the test, in whatever function it stands; every failure names the seed of
// the random data.
class Failures : public testing::EmptyTestEventListener {
  void OnTestPartResult(const testing::TestPartResult& result) override {
    if (result.fatally_failed()) throw testing::AssertionException(result);
  }
  void OnTestEnd(const testing::TestInfo& test) override {
    if (test.result()->Failed()) std::printf("%s\n", test::seedNote().c_str());
  }
};

[[maybe_unused]] const bool isListening = [] {
  testing::UnitTest::GetInstance()->listeners().Append(new Failures);
  return true;
}();

}  // namespace
