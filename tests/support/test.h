// What every test includes.
#pragma once

#include <gtest/gtest.h>
#include <moxsp.h>

#include <algorithm>
#include <climits>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <string>
#include <vector>

#include "support/random.h"
#include "support/same_bits.h"

#define ASSERT_OK(...) ASSERT_EQ((__VA_ARGS__), moxOk)
#define EXPECT_OK(...) EXPECT_EQ((__VA_ARGS__), moxOk)

// A suite of typed tests that share nothing.
#define TYPED_SUITE(name, ...)                     \
  template <class>                                 \
  class name : public testing::Test {};            \
  using name##Types = testing::Types<__VA_ARGS__>; \
  TYPED_TEST_SUITE(name, name##Types)
