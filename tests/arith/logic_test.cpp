// Bitwise operations and shifts.
#include <functional>

#include "support/members.h"

namespace {

using namespace test;

template <class E>
const std::vector<E> anyBits = Random(1).vector<E>(200);
template <class E>
const std::vector<E> otherBits = Random(2).vector<E>(200);

template <class E, class Operation>
void expectBits(Member<const E*, const E*, E*, int> member, Operation operation) {
  expectEach(run(member, anyBits<E>, otherBits<E>), operation, anyBits<E>, otherBits<E>);
}
template <class E, class Operation>
void expectBits(Member<const E*, E, E*, int> member, Operation operation) {
  for (const E val : {E(0), E(~0), E(0x5A3C69F1)})
    expectEach(
        run(member, anyBits<E>, val), [&](E x) { return operation(x, val); }, anyBits<E>);
}

#define EXPECT_LOGIC_OF(t)                        \
  expectBits(MEMBER(And_##t), std::bit_and<>());  \
  expectBits(MEMBER(Or_##t), std::bit_or<>());    \
  expectBits(MEMBER(Xor_##t), std::bit_xor<>());  \
  expectBits(MEMBER(AndC_##t), std::bit_and<>()); \
  expectBits(MEMBER(OrC_##t), std::bit_or<>());   \
  expectBits(MEMBER(XorC_##t), std::bit_xor<>()); \
  expectEach(run(MEMBER(Not_##t), anyBits<Mox##t>), std::bit_not<>(), anyBits<Mox##t>)

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

template <class E, class Model>
void expectShift(Member<const E*, int, E*, int> member, Model model) {
  constexpr int width = 8 * sizeof(E);
  for (const int count : {0, 1, 3, width / 2, width - 1, width, width + 1, 64, INT_MAX})
    expectEach(
        run(member, anyBits<E>, count), [&](E x) { return model(x, count); }, anyBits<E>);
}

#define EXPECT_SHIFTS_OF(t)               \
  expectShift(MEMBER(LShiftC_##t), left); \
  expectShift(MEMBER(RShiftC_##t), right)

TEST(Shift, LeftClearsFromTheWidthOnAndRightKeepsTheSignOfSignedElements) {
  EXPECT_SHIFTS_OF(8u);
  EXPECT_SHIFTS_OF(16u);
  EXPECT_SHIFTS_OF(16s);
  EXPECT_SHIFTS_OF(32s);
}

}  // namespace
