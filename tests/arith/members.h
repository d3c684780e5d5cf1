// Runs the members of element-wise families against a model of one element: all shapes of a call
// (plain, with dst equal to a source, in place), lengths around the blocks, and destinations at
// addresses that vectors like and dislike.
#pragma once

#include <gtest/gtest.h>
#include <moxsp/types.h>

#include <cstring>
#include <vector>

#include "support/guarded_array.h"
#include "support/random.h"

namespace test {

template <class S1, class S2, class D>
using PairMember = MoxStatus (*)(const S1*, const S2*, D*, int);
template <class S, class D>
using PairInPlaceMember = MoxStatus (*)(const S*, D*, int);
template <class S, class C>
using ConstantMember = MoxStatus (*)(const S*, C, S*, int);
template <class S, class C>
using ConstantInPlaceMember = MoxStatus (*)(C, S*, int);

// Elements whose bytes end at an inaccessible page, `slack` bytes before it.
template <class E>
class Place {
 public:
  Place(long len, int slack) : bytes_(len * sizeof(E) + slack, Guard::after), len_(len) {}
  E* data() const { return reinterpret_cast<E*>(bytes_.data()); }
  E* filled(const std::vector<E>& from) const {
    std::memcpy(static_cast<void*>(data()), from.data(), len_ * sizeof(E));
    return data();
  }
  void expect(const std::vector<E>& expected, const char* call) const {
    for (long i = 0; i < len_; ++i)
      ASSERT_EQ(0, std::memcmp(bytes_.data() + i * sizeof(E), &expected[i], sizeof(E)))
          << call << ", element " << i << " of " << len_ << ", address modulo 32 is "
          << reinterpret_cast<std::uintptr_t>(data()) % 32;
  }

 private:
  GuardedBytes bytes_;
  long len_;
};

constexpr int slacks[] = {0, 1, 4, 6, 16};

template <class Check>
void atLengthsAndPlaces(Check check) {
  SCOPED_TRACE(seedNote());
  for (long len = 1; len <= 70; ++len)
    for (int slack : slacks) {
      check(len, slack);
      if (testing::Test::HasFatalFailure()) return;
    }
}

// `draw` makes an element, so that a test may choose special values.
template <class S1, class S2, class D, class Model, class Draw>
void expectPairs(PairMember<S1, S2, D> plain, PairInPlaceMember<S1, D> inPlace, Model model,
                 Draw draw) {
  Random random;
  atLengthsAndPlaces([&](long len, int slack) {
    std::vector<S1> a(len);
    std::vector<S2> b(len);
    std::vector<D> expected(len);
    for (long i = 0; i < len; ++i) {
      a[i] = draw(random, S1());
      b[i] = draw(random, S2());
      expected[i] = model(a[i], b[i]);
    }
    const int n = int(len);
    const Place<D> dst(len, slack);
    const Place<S1> first(len, 0);
    const Place<S2> second(len, 0);
    ASSERT_EQ(plain(first.filled(a), second.filled(b), dst.data(), n), moxOk);
    dst.expect(expected, "plain");
    if constexpr (std::is_same_v<S1, D>) {
      D* both = dst.filled(a);
      ASSERT_EQ(plain(both, second.filled(b), both, n), moxOk);
      dst.expect(expected, "dst is src1");
    }
    if constexpr (std::is_same_v<S2, D>) {
      D* both = dst.filled(b);
      ASSERT_EQ(plain(first.filled(a), both, both, n), moxOk);
      dst.expect(expected, "dst is src2");
      ASSERT_EQ(inPlace(first.filled(a), dst.filled(b), n), moxOk);
      dst.expect(expected, "in place");
    }
  });
}

template <class S, class C, class Model, class Draw>
void expectConstants(ConstantMember<S, C> plain, ConstantInPlaceMember<S, C> inPlace, C val,
                     Model model, Draw draw) {
  Random random;
  atLengthsAndPlaces([&](long len, int slack) {
    std::vector<S> a(len), expected(len);
    for (long i = 0; i < len; ++i) {
      a[i] = draw(random, S());
      expected[i] = model(a[i], val);
    }
    const int n = int(len);
    const Place<S> src(len, 0), dst(len, slack);
    ASSERT_EQ(plain(src.filled(a), val, dst.data(), n), moxOk);
    dst.expect(expected, "plain");
    S* both = dst.filled(a);
    ASSERT_EQ(plain(both, val, both, n), moxOk);
    dst.expect(expected, "dst is src");
    ASSERT_EQ(inPlace(val, dst.filled(a), n), moxOk);
    dst.expect(expected, "in place");
  });
}

}  // namespace test
