// Runs a call again and again, each time with the next of its allocations failing.
#pragma once

#include <gtest/gtest.h>
#include <moxsp/types.h>

#include <string>

#include "support/core_probe.h"

namespace test {

// Runs `call` with its first allocation failing, then its second, and so on until it gets all that
// it asks for. A call that lost an allocation must answer moxErrMemAlloc, must have released what
// it took, and `unchanged` is run to check that it left the caller's data alone. The last run
// must succeed; what it allocated is the caller's to release. Returns how many allocations were
// failed, so that a test can assert that there were any; -1 after a failed assertion.
//
//   MoxsFFTSpec* spec = nullptr;
//   const auto init = [&] { return moxsFFTInitAlloc_C_32fc(&spec, 10, 8, 0); };
//   EXPECT_GT(test::failEachAllocation(init, [&] { EXPECT_EQ(spec, nullptr); }), 0);
template <class Call, class Unchanged>
int failEachAllocation(Call call, Unchanged unchanged) {
  for (int nth = 1; nth < 1000; ++nth) {
    SCOPED_TRACE("allocation " + std::to_string(nth) + " fails");
    CoreProbe probe;
    probe.failAllocation(nth);
    const MoxStatus status = call();
    if (probe.allocations() < nth) {
      EXPECT_GE(status, moxOk) << "all allocations were granted";
      return status >= moxOk ? nth - 1 : -1;
    }
    EXPECT_EQ(status, moxErrMemAlloc);
    EXPECT_EQ(probe.live(), 0) << "blocks were not released";
    unchanged();
    if (testing::Test::HasFailure()) return -1;
  }
  ADD_FAILURE() << "1000 allocations in one call";
  return -1;
}

template <class Call>
int failEachAllocation(Call call) {
  return failEachAllocation(call, [] {});
}

}  // namespace test
