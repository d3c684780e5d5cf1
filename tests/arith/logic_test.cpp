// Bitwise operations and shifts.
#include <functional>

#include "support/members.h"

namespace {

using namespace test;

template <class E>
const std::vector<E> anyBits = Random(1).vector<E>(200);
template <class E>
const std::vector<E> otherBits = Random(2).vector<E>(200);

template <class E>
void expectBits(auto operation, Member<const E*, const E*, E*, int> two,
                Member<const E*, E, E*, int> withConstant) {
  expectEach(run(two, anyBits<E>, otherBits<E>), operation);
  for (const E val : {E(0), E(~0), E(0x5A3C69F1)})
    expectEach(run(withConstant, anyBits<E>, val), [&](E x) { return operation(x, val); });
}

#define EXPECT_LOGIC_OF(t)                                         \
  expectBits(std::bit_and<>(), MEMBER(And_##t), MEMBER(AndC_##t)); \
  expectBits(std::bit_or<>(), MEMBER(Or_##t), MEMBER(OrC_##t));    \
  expectBits(std::bit_xor<>(), MEMBER(Xor_##t), MEMBER(XorC_##t)); \
  expectEach(run(MEMBER(Not_##t), anyBits<Mox##t>), std::bit_not<>())

TEST(Logic, EveryMemberIsTheBitwiseOperation) {
  EXPECT_LOGIC_OF(8u);
  EXPECT_LOGIC_OF(16u);
  EXPECT_LOGIC_OF(32u);
}

// The models shift one place at a time, so that no count is too large.
const auto left = [](auto x, int count) {
  Mox64u wide = Mox64u(x);
  for (int i = 0; i < std::min(count, 64); ++i) wide *= 2;
  return wide;
};
const auto right = [](auto x, int count) {
  Mox64s wide = x;
  for (int i = 0; i < std::min(count, 64); ++i) wide = wide / 2 - (wide < 0 && wide % 2);
  return wide;
};

template <class E>
void expectShift(auto model, Member<const E*, int, E*, int> member) {
  constexpr int width = 8 * sizeof(E);
  for (const int count : {0, 1, 3, width / 2, width - 1, width, width + 1, 64, INT_MAX})
    expectEach(run(member, anyBits<E>, count), [&](E x) { return model(x, count); });
}

TEST(Shift, LeftClearsFromTheWidthOnAndRightKeepsTheSignOfSignedElements) {
  const auto expectShifts = [](auto model, auto... members) { (expectShift(model, members), ...); };
  expectShifts(left, MEMBER(LShiftC_8u), MEMBER(LShiftC_16u), MEMBER(LShiftC_16s),
               MEMBER(LShiftC_32s));
  expectShifts(right, MEMBER(RShiftC_8u), MEMBER(RShiftC_16u), MEMBER(RShiftC_16s),
               MEMBER(RShiftC_32s));
}

}  // namespace
